' A run of Strandline as on Word 2003, without Word.
'
' On this version the library paints a strip over the product's command bar, in the window of each document. A script
' has no such windows, so this one opens no document: it starts the library, gives the commands that need no window, and
' stops it. word2007.vbs has the documents' events.
'
' The classes below play what the product hands to the library, with the members that are used on the way and no others;
' docs/macros.md lists them all. The script looks at the outcome of each step, and ends with the exit code 0 if all was
' as it should be, else with 1.
'
'     regsvr32 strandline.dll
'     cscript //nologo word2003.vbs
'
' On a 64-bit Windows the 32-bit library wants the 32-bit script host: C:\Windows\SysWOW64\cscript.exe.

Option Explicit

Const PRODUCT_NAME = "Quillmere"
Const INSTALL_PATH = "C:\Program Files\Quillmere\"
Const STEPS = 27

Const TOP_OF_WINDOW = 1
Const LAST_ROW = -1

' ---------------------------------------------------------------------------------------------------------------------
' Word
' ---------------------------------------------------------------------------------------------------------------------

' A collection whose elements are asked for by name, through Item: a dictionary does that, and has a Count.
Function NewCollection()
  Set NewCollection = CreateObject("Scripting.Dictionary")
End Function

Class WordApplication
  Public Documents
  Public CommandBars
  Public Options

  Private Sub Class_Initialize()
    Set Documents = NewCollection()
    Set CommandBars = NewCollection()
    Set Options = New WordOptions
  End Sub

  ' The number before the point is the version.
  Public Property Get Version()
    Version = "11.0"
  End Property

  ' Word itself raises an error while no document is open. Nothing comes to the same for the library.
  Public Property Get ActiveDocument()
    Set ActiveDocument = Nothing
  End Property
End Class

Class WordOptions
  Public CtrlClickHyperlinkToOpen
End Class

' The product's bar stands at the top of the window, somewhere on a row that it shares.
Class WordCommandBar
  Public Visible
  Public Position
  Public RowIndex
  Public Left
  Public Controls

  Private Sub Class_Initialize()
    Visible = True
    Position = TOP_OF_WINDOW
    RowIndex = 2
    Left = 300
    Set Controls = NewCollection()
  End Sub
End Class

' A pop-up has controls of its own. The real bar has sixteen controls; the library asks for one only, by its caption.
Class WordControl
  Public Enabled
  Public Controls

  Private Sub Class_Initialize()
    Enabled = True
    Set Controls = NewCollection()
  End Sub
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
End Class

Class ProductStore
  Public tooltip
  Public Commands

  Private Sub Class_Initialize()
    Set tooltip = New ProductTooltip
  End Sub

  ' Ends with a backslash: the library puts a bare file name behind it.
  Public Property Get InstallPath()
    InstallPath = INSTALL_PATH
  End Property

  ' What the library tells the product. It has a second parameter in a macro, an optional one; the library leaves it
  ' out, and a procedure of a script can't have one that may be left out.
  Public Function ExecuteQLMCommand(command)
    Commands = Commands & command & ";"
  End Function
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

Dim word, bar, menu, gotoQuickBookmark, store, state

Set gotoQuickBookmark = New WordControl
Set menu = New WordControl
menu.Controls.Add "Go to quick bookmark", gotoQuickBookmark
Set bar = New WordCommandBar
bar.Controls.Add PRODUCT_NAME, menu

Set word = New WordApplication
word.Options.CtrlClickHyperlinkToOpen = True
word.CommandBars.Add PRODUCT_NAME, bar

Set store = New ProductStore
Set state = New ProductState
state.productName = PRODUCT_NAME
state.lumivexEnabled = False

' From here on each error is looked at where it may arise. A statement that an error cuts short leaves its check out,
' which is why the number of checks is compared at the end.
On Error Resume Next

Dim main2, answer
Set main2 = CreateObject("Strandline.Main2")
CheckNoError "Strandline.Main2 is created"
If stepsFailed > 0 Then WScript.Quit 1

' Start.
main2.Initialize word, store, state, PRODUCT_NAME
CheckNoError "Initialize"
Check "the bar stands on a row of its own", bar.RowIndex = LAST_ROW And bar.Left = 0
Check "the bar is still shown", bar.Visible = True
Check "the tooltip has the product's own icon", store.tooltip.TooltipIconIndex = 401
Check "there is no ribbon", main2.RibbonHandler Is Nothing
Check "the product has been told nothing yet", store.Commands = ""

' An event that comes before Word has its document: nothing happens. With a document open this call would wait until
' Word shows the bar in that document's window.
main2.HandleCreateDocument False
CheckNoError "HandleCreateDocument without a document"

' Without a document there is no bookmark to go to.
main2.HandleDocumentChange
CheckNoError "HandleDocumentChange without a document"
Check "the entry for the bookmark can't be chosen", gotoQuickBookmark.Enabled = False
main2.EnableGotoQuickBookmark True
CheckNoError "EnableGotoQuickBookmark"
Check "now it can", gotoQuickBookmark.Enabled = True

' The user's commands. Their names may be written in any case.
answer = main2.Execute("OpenUserManual")
CheckNoError "Execute OpenUserManual"
Check "it answers the manual's path", answer = INSTALL_PATH & "Quillmere user manual.doc"
Check "links of the manual will follow a plain click", word.Options.CtrlClickHyperlinkToOpen = False

answer = main2.Execute("togglelumivex")
CheckNoError "Execute togglelumivex"
Check "it answers nothing, and Lumivex is on", answer = "" And state.lumivexEnabled
Check "the product was told of it", store.Commands = "LumivexToggled;"

main2.UseQuillmere
CheckNoError "UseQuillmere"
Check "it belongs to the ribbon: the product was told nothing", store.Commands = "LumivexToggled;"

main2.ClickOnAd
CheckNoError "ClickOnAd without a strip"

' Whatever fails inside is the library's own affair: an unknown command is no error here.
answer = main2.Execute("NoSuchCommand")
CheckNoError "Execute of an unknown command answers nothing"
' What can't even be called is the caller's.
main2.Execute
Check "a call without its argument is error 450", Err.Number = 450
Err.Clear

' The product has got another name. The bar keeps the one that was given at the start.
state.productName = "Halcyra"
main2.ProductNameChanged
CheckNoError "ProductNameChanged"
Check "the tooltip has the other icon", store.tooltip.TooltipIconIndex = 402

' Stop. The second time there is nothing left to do.
main2.Quit
CheckNoError "Quit"
main2.Quit
CheckNoError "Quit again"
Set main2 = Nothing

WScript.Echo stepsDone & " of " & STEPS & " steps done, " & stepsFailed & " failed"
If stepsDone <> STEPS Or stepsFailed > 0 Then WScript.Quit 1
WScript.Quit 0
