' What every script begins with: run-scripts puts the files of parts/ before it, for one script can't include another.
' Each check prints `ok name` or `FAIL name: what was wrong`. Finish comes last; a script that ends before it, or has
' made fewer checks than it says, has failed.
Option Explicit

Dim gChecked, gFailed, gHeard
gChecked = 0
gFailed = 0
gHeard = ""

Sub Passed(name)
  gChecked = gChecked + 1
  WScript.Echo "ok " & name
End Sub

Sub Failed(name, why)
  gChecked = gChecked + 1
  gFailed = gFailed + 1
  WScript.Echo "FAIL " & name & ": " & why
End Sub

Sub Check(name, isSo)
  If isSo Then
    Passed name
  Else
    Failed name, "it isn't so"
  End If
End Sub

' The values as texts; what is Nothing or Empty has its name.
Sub Equal(name, actual, expected)
  If TextOf(actual) = TextOf(expected) Then
    Passed name
  Else
    Failed name, "is <" & TextOf(actual) & ">, not <" & TextOf(expected) & ">"
  End If
End Sub

Function TextOf(value)
  If IsObject(value) Then
    If value Is Nothing Then
      TextOf = "Nothing"
    Else
      TextOf = TypeName(value)
    End If
  ElseIf IsEmpty(value) Then
    TextOf = "Empty"
  Else
    TextOf = CStr(value)
  End If
End Function

' The script's own classes tell here what they hear.
Sub Note(line)
  If gHeard = "" Then
    gHeard = line
  Else
    gHeard = gHeard & "; " & line
  End If
End Sub

' What was heard since the last time is exactly this, in this order; "" is silence.
Sub HeardIs(name, expected)
  Dim heard
  heard = gHeard
  gHeard = ""
  Equal name, heard, expected
End Sub

' This stood among it.
Sub HeardAmongIt(name, part)
  Dim heard
  heard = gHeard
  gHeard = ""
  If InStr(heard, part) > 0 Then
    Passed name
  Else
    Failed name, "<" & part & "> isn't in <" & heard & ">"
  End If
End Sub

Sub NoError(name)
  If Err.Number = 0 Then
    Passed name
  Else
    Failed name, "error " & Err.Number & " " & Err.Description
    Err.Clear
  End If
End Sub

' The last statement raised that number; of a text the beginning is compared, and "" asks for some text.
Sub ErrorIs(name, number, text)
  Dim was, told
  was = Err.Number
  told = Err.Description
  Err.Clear
  If was <> number Then
    Failed name, "error " & was & " <" & told & ">, not " & number
  ElseIf text = "" And told = "" Then
    Failed name, "the error has no text"
  ElseIf Left(told, Len(text)) <> text Then
    Failed name, "the error says <" & told & ">, not <" & text & ">"
  Else
    Passed name
  End If
End Sub

Sub Finish(expected)
  If gChecked <> expected Then Failed "the number of checks", "is " & gChecked & ", not " & expected
  ' Quit ends the process at once: nothing that the script holds is released by it.
  gHelper.ForgetAll
  WScript.Echo "done"
  WScript.Quit gFailed
End Sub
