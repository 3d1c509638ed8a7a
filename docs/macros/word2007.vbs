' A run of Strandline as on Word 2007, without Word.
'
' The classes below play what the product hands to the library: Word's Application, the product's store and its state,
' and one document. They offer the members that the library uses on this version, and no others; docs/macros.md lists
' them all. The script then does what the product's macros do, looks at the outcome of each step, and ends with the
' exit code 0 if all was as it should be, else with 1.
'
'     regsvr32 strandline.dll
'     cscript //nologo word2007.vbs
'
' On a 64-bit Windows the 32-bit library wants the 32-bit script host: C:\Windows\SysWOW64\cscript.exe.
'
' The ribbon component RibbonHandler.Main2 needn't be there. Without it Initialize ends at the step that creates it,
' main2.RibbonHandler stays Nothing, and what concerns the ribbon alone fails without a sign; all the rest works.

Option Explicit

Const PRODUCT_NAME = "Quillmere"
Const INSTALL_PATH = "C:\Program Files\Quillmere\"
Const STEPS = 22

' ---------------------------------------------------------------------------------------------------------------------
' Word
' ---------------------------------------------------------------------------------------------------------------------

' Word's collections are gone through with For Each. A class of a script can't be, but a dictionary can: it gives its
' keys. So the elements are the keys here, and Count comes with the dictionary.
Function NewCollection()
  Set NewCollection = CreateObject("Scripting.Dictionary")
End Function

Class WordApplication
  Public Documents
  Public Templates
  Public CommandBars
  Public Options
  Public ActiveDocument

  Private Sub Class_Initialize()
    Set Documents = NewCollection()
    Set Templates = NewCollection()
    ' Bars are asked for by name, through Item. So here the names are the keys.
    Set CommandBars = CreateObject("Scripting.Dictionary")
    Set Options = New WordOptions
    Set ActiveDocument = Nothing
  End Sub

  ' The number before the point is the version. All that the library does otherwise on one Word than on another hangs
  ' on this text.
  Public Property Get Version()
    Version = "12.0"
  End Property

  Public Sub Open(doc)
    Documents.Add doc, doc.Name
    Set ActiveDocument = doc
  End Sub

  Public Sub Close(doc)
    Documents.Remove doc
    Set ActiveDocument = Nothing
  End Sub
End Class

Class WordOptions
  Public CtrlClickHyperlinkToOpen
End Class

Class WordCommandBar
  Public Visible
End Class

Class WordTemplate
  Public Name
  Public Saved
End Class

Class WordDocument
  Public Name
  Public Saved
  Public Bookmarks

  Private Sub Class_Initialize()
    Set Bookmarks = New WordBookmarks
  End Sub
End Class

Class WordBookmarks
  Public LastAsked

  Public Function Exists(bookmark)
    LastAsked = bookmark
    Exists = (bookmark = "quick")
  End Function
End Class

' ---------------------------------------------------------------------------------------------------------------------
' The product
' ---------------------------------------------------------------------------------------------------------------------

Class ProductState
  Public productName
  Public lumivexEnabled
End Class

Class ProductTooltip
  Public TooltipIconIndex

  ' The text as the tooltip's window is to show it.
  Public Function TooltipBackground(text)
    TooltipBackground = text
  End Function
End Class

Class ProductStore
  Public tooltip
  Public Commands
  Private mDocumentValueMaps

  Private Sub Class_Initialize()
    Set tooltip = New ProductTooltip
    Set mDocumentValueMaps = CreateObject("Scripting.Dictionary")
  End Sub

  ' Both folders end with a backslash: the library puts a bare file name behind them.
  Public Property Get InstallPath()
    InstallPath = INSTALL_PATH
  End Property

  Public Property Get CommonAppPath()
    CommonAppPath = "C:\ProgramData\Quillmere\"
  End Property

  ' What the library tells the product. It has a second parameter in a macro, an optional one; the library leaves it
  ' out, and a procedure of a script can't have one that may be left out.
  Public Function ExecuteQLMCommand(command)
    Commands = Commands & command & ";"
  End Function

  Public Function GlobalUserValue(key)
    GlobalUserValue = ""
  End Function

  Public Function GlobalUserValueWithDefault(key, ifAbsent)
    GlobalUserValueWithDefault = ifAbsent
  End Function

  Public Function GlobalValue(key)
    GlobalValue = ""
  End Function

  ' A document's values. The library reads its variables once and leaves them here, as a dictionary under the
  ' document's id.
  Public Function DocumentValueMapExists(docId)
    DocumentValueMapExists = mDocumentValueMaps.Exists(docId)
  End Function

  Public Property Set DocumentValueMap(docId, map)
    Set mDocumentValueMaps.Item(docId) = map
  End Property

  Public Function DocumentValue(key, docId)
    DocumentValue = ""
    If mDocumentValueMaps.Exists(docId) Then
      If mDocumentValueMaps.Item(docId).Exists(key) Then DocumentValue = mDocumentValueMaps.Item(docId).Item(key)
    End If
  End Function

  ' Who wants to hear of a value's change. Nothing changes in this script.
  Public Sub AddListener(key, callback)
  End Sub
End Class

' ---------------------------------------------------------------------------------------------------------------------
' The record of this run
' ---------------------------------------------------------------------------------------------------------------------

Dim stepsDone, stepsFailed
stepsDone = 0
stepsFailed = 0

Sub Check(what, isSo)
  stepsDone = stepsDone + 1
  If isSo Then
    WScript.Echo "ok      " & what
  Else
    stepsFailed = stepsFailed + 1
    WScript.Echo "FAILED  " & what
  End If
End Sub

' To be called right after a call: that call has brought the caller no error.
Sub CheckNoError(what)
  Dim number, description
  number = Err.Number
  description = Err.Description
  Err.Clear
  If number <> 0 Then what = what & " (error " & number & ": " & description & ")"
  Check what, number = 0
End Sub

' ---------------------------------------------------------------------------------------------------------------------
' The run
' ---------------------------------------------------------------------------------------------------------------------

Dim word, bar, ourTemplate, thesis, store, state

Set bar = New WordCommandBar
bar.Visible = True
Set ourTemplate = New WordTemplate
ourTemplate.Name = "Quillmere.dotm"
ourTemplate.Saved = False

Set word = New WordApplication
word.Options.CtrlClickHyperlinkToOpen = True
word.CommandBars.Add PRODUCT_NAME, bar
word.CommandBars.Add "Ribbon", New WordCommandBar
word.Templates.Add ourTemplate, ourTemplate.Name

Set thesis = New WordDocument
thesis.Name = "Thesis.docx"
thesis.Saved = True

Set store = New ProductStore
Set state = New ProductState
state.productName = PRODUCT_NAME
state.lumivexEnabled = False

' From here on each error is looked at where it may arise. A statement that an error cuts short leaves its check out,
' which is why the number of checks is compared at the end.
On Error Resume Next

Dim main2, hasRibbon, answer
Set main2 = CreateObject("Strandline.Main2")
CheckNoError "Strandline.Main2 is created"
If stepsFailed > 0 Then WScript.Quit 1

' Start. The names of the bar and of the product are the same here; they needn't be.
main2.Initialize word, store, state, PRODUCT_NAME
CheckNoError "Initialize"
Check "the command bar is hidden, the ribbon stands in its place", bar.Visible = False
Check "the tooltip has the product's own icon", store.tooltip.TooltipIconIndex = 401
Check "the product has been told of Lumivex", store.Commands = "LumivexToggled;"
hasRibbon = Not (main2.RibbonHandler Is Nothing)
CheckNoError "RibbonHandler can be read"
If hasRibbon Then
  WScript.Echo "        the ribbon component is there"
Else
  WScript.Echo "        the ribbon component is missing, so Initialize has ended where it wanted one"
End If

' Word has opened a document, and it is the active one.
word.Open thesis
main2.HandleCreateDocument False
CheckNoError "HandleCreateDocument"
main2.HandleDocumentChange
CheckNoError "HandleDocumentChange"
Check "the document was asked for its bookmark", thesis.Bookmarks.LastAsked = "quick"

' The user's commands. Their names may be written in any case.
answer = main2.Execute("OpenUserManual")
CheckNoError "Execute OpenUserManual"
Check "it answers the manual's path", answer = INSTALL_PATH & "Quillmere user manual.doc"
Check "links of the manual will follow a plain click", word.Options.CtrlClickHyperlinkToOpen = False

store.Commands = ""
answer = main2.Execute("togglelumivex")
CheckNoError "Execute togglelumivex"
Check "it answers nothing, and Lumivex is on", answer = "" And state.lumivexEnabled
main2.UseQuillmere
CheckNoError "UseQuillmere"
Check "the product was told of both", store.Commands = "LumivexToggled;InsertReference;"

' Whatever fails inside is the library's own affair: an unknown command is no error here.
answer = main2.Execute("NoSuchCommand")
CheckNoError "Execute of an unknown command answers nothing"
' What can't even be called is the caller's.
main2.NoSuchOperation
Check "an unknown operation is error 438", Err.Number = 438
Err.Clear

' Word is about to close the document, which it still counts.
answer = main2.HandleCloseDocument(thesis)
CheckNoError "HandleCloseDocument"
Check "the close may go on, and Word won't ask about the template", answer = True And ourTemplate.Saved = True
word.Close thesis

' Stop.
main2.Quit
CheckNoError "Quit"
Check "the library has let go of the ribbon", main2.RibbonHandler Is Nothing
Set main2 = Nothing

WScript.Echo stepsDone & " of " & STEPS & " steps done, " & stepsFailed & " failed"
If stepsDone <> STEPS Or stepsFailed > 0 Then WScript.Quit 1
WScript.Quit 0
