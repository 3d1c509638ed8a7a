' What no caller should send, and a Word that fails. Wrong kinds and counts of arguments are errors of the script's; what
' fails inside an operation goes to the error component and never to the script. The process lives through all of it.
On Error Resume Next

Const kWrongCount = "Wrong number of arguments"
Const kWrongKind = "Type mismatch"
Const kNoMember = "Object doesn't support"

Sub Refuse()
  Err.Raise 4605, "Word", "Word is busy"
End Sub

Class RefusingApplication
  Public Property Get Version()
    Refuse
  End Property
  Public Property Get Documents()
    Refuse
  End Property
  Public Property Get ActiveDocument()
    Refuse
  End Property
  Public Property Get ActiveWindow()
    Refuse
  End Property
  Public Property Get CommandBars()
    Refuse
  End Property
  Public Property Get Templates()
    Refuse
  End Property
  Public Property Get Dialogs()
    Refuse
  End Property
  Public Property Get Options()
    Refuse
  End Property
End Class

' Everything that can be called with good arguments, on an object that is in no state for it. None is an error.
Sub CallEverything(main, document, when)
  Dim flag, command, answer
  On Error Resume Next
  flag = True
  main.HandleCreateDocument flag
  main.HandleCreateDocument False
  NoError when & ": HandleCreateDocument"
  main.HandleDocumentChange
  main.EnableGotoQuickBookmark True
  NoError when & ": the document's changes"
  answer = Empty
  answer = main.HandleCloseDocument(document)
  NoError when & ": HandleCloseDocument"
  Equal when & ": its answer is a Boolean", TypeName(answer), "Boolean"
  main.ReadingMode
  main.ReadingModeLayout
  main.CloseReadingMode
  NoError when & ": the reading layout"
  main.FilePrintPreview2
  main.ClosePreview
  NoError when & ": the print preview"
  main.ToggleLumivex
  main.ShrinkToolbar
  main.ProductNameChanged
  main.UseQuillmere
  main.ClickOnAd
  NoError when & ": the other commands"
  answer = Empty
  answer = main.OpenUserManual
  NoError when & ": OpenUserManual"
  Equal when & ": its answer is a text", TypeName(answer), "String"
  For Each command In Array("ReadingMode", "ClosePreview", "ToggleLumivex", "ClickOnAd", "Initialize", "", "No such")
    answer = Empty
    answer = main.Execute(command)
    NoError when & ": Execute <" & command & ">"
    Equal when & ": it answers the empty text", TypeName(answer) & Len(answer), "String0"
  Next
End Sub

Dim word, store, state, errors, main, letter, answer, relay, name
Set errors = New PlayedErrorComponent
Set store = New PlayedStore
Set state = New PlayedState
Set letter = DocumentNamed("Letter.doc")
gHelper.Component "QuillmereError.Main2", errors
NoError "the parts are set up"

' Wrong counts.
Set main = CreateObject("Strandline.Main2")
answer = main.Execute
ErrorIs "Execute without a command", 450, kWrongCount
answer = main.Execute("Quit", "Quit")
ErrorIs "Execute of two", 450, kWrongCount
main.Quit 1
ErrorIs "Quit with an argument", 450, kWrongCount
main.HandleCreateDocument
ErrorIs "HandleCreateDocument without its argument", 450, kWrongCount
answer = main.HandleCloseDocument
ErrorIs "HandleCloseDocument without a document", 450, kWrongCount
main.Initialize letter, store, state
ErrorIs "Initialize with three", 450, kWrongCount
main.Initialize letter, store, state, "Quillmere", 5
ErrorIs "Initialize with five", 450, kWrongCount
answer = main.RibbonHandler(1)
ErrorIs "RibbonHandler with an argument", 450, kWrongCount

' Wrong kinds.
main.HandleCreateDocument "maybe"
ErrorIs "a text that is no truth value", 13, kWrongKind
main.HandleCreateDocument Nothing
ErrorIs "Nothing that is no truth value", 13, kWrongKind
main.HandleCreateDocument Array(True)
ErrorIs "an array that is no truth value", 13, kWrongKind
main.HandleCreateDocument letter
ErrorIs "an object that is no truth value", 13, kWrongKind
main.EnableGotoQuickBookmark Null
ErrorIs "Null that is no truth value", 94, ""
answer = main.Execute(letter)
ErrorIs "an object that is no command", 13, kWrongKind
answer = main.Execute(Array("Quit"))
ErrorIs "an array that is no command", 13, kWrongKind
answer = main.Execute(Null)
ErrorIs "Null that is no command", 94, ""
answer = main.HandleCloseDocument(5)
ErrorIs "a number that is no document", 13, kWrongKind
answer = main.HandleCloseDocument("Letter.doc")
ErrorIs "a name that is no document", 13, kWrongKind
answer = main.HandleCloseDocument(Empty)
ErrorIs "Empty that is no document", 13, kWrongKind
main.Initialize 1, 2, 3, "Quillmere"
ErrorIs "numbers that are no objects", 13, kWrongKind
main.Initialize letter, store, state, letter
ErrorIs "an object that is no name", 13, kWrongKind

' Unknown members.
main.NoSuchOperation
ErrorIs "an unknown operation", 438, kNoMember
answer = main.mToolbars
ErrorIs "an unknown property", 438, kNoMember
Set main.RibbonHandler = letter
ErrorIs "RibbonHandler can't be set", 438, kNoMember
main.Quit = 1
ErrorIs "an operation can't be set", 438, kNoMember
HeardIs "none of these has reached an operation", ""

' What converts is taken.
main.HandleCreateDocument "True"
main.HandleCreateDocument 7
main.HandleCreateDocument Empty
NoError "what stands for a truth value"
answer = main.Execute(5)
NoError "a number for a command"
HeardAmongIt "the operations are reached", "error 91 in Strandline.Main2.Execute"

' Before Initialize.
CallEverything main, letter, "before Initialize"
Check "before Initialize there is no ribbon", main.RibbonHandler Is Nothing
HeardAmongIt "before Initialize the error component hears what is missing", "error 91 in Strandline."
answer = main.HandleCloseDocument(Nothing)
NoError "Nothing as document"
Equal "may not close", answer, False
gHeard = ""

' Nothing for everything.
main.Initialize Nothing, Nothing, Nothing, ""
NoError "Initialize with Nothing"
HeardAmongIt "Word can't be Nothing", "error 12345 in Strandline.CommonWordInteractionFunctions.Initialize"
CallEverything main, letter, "without Word"
main.Quit
NoError "without Word: Quit"
CallEverything main, letter, "after Quit"
main.Quit
NoError "after Quit: Quit"
main.Initialize Nothing, Nothing, Nothing, ""
NoError "after Quit: Initialize"
Set main = Nothing
gHeard = ""

' A Word that refuses everything.
Set word = New RefusingApplication
Set main = CreateObject("Strandline.Main2")
main.Initialize word, store, state, "Quillmere"
NoError "Initialize with a Word that refuses"
HeardAmongIt "the error has Word's number", "error 4605 in Strandline.CommonWordInteractionFunctions.WordVersion[Get]"
CallEverything main, letter, "a Word that refuses"
CallEverything main, gHelper.Raiser(4606, "no document"), "a document that refuses"
HeardAmongIt "the error has the document's number", "error 4605 in Strandline."
main.Quit
NoError "a Word that refuses: Quit"
Set main = Nothing
gHeard = ""

' A product that refuses everything.
Set word = New PlayedApplication
word.Version = "12.0"
AddBar word, "Quillmere"
Set main = CreateObject("Strandline.Main2")
main.Initialize word, gHelper.Raiser(1000, "no store"), gHelper.Raiser(1001, "no state"), "Quillmere"
NoError "Initialize with a product that refuses"
HeardAmongIt "its state's error", "error 1001 in Strandline.Main2.ProductNameChanged"
main.UseQuillmere
HeardAmongIt "its store's error", "error 1000 in Strandline.CommonPropertyFunctions.ExecuteQLMCommand"
Equal "with the store's text", errors.LastDescription, "no store"
CallEverything main, letter, "a product that refuses"
Set main = Nothing
NoError "the end without Quit"
gHeard = ""

' A script's own class that raises.
store.Refuses = True
Set main = CreateObject("Strandline.Main2")
main.Initialize word, store, state, "Quillmere"
NoError "Initialize with a store that raises"
HeardAmongIt "the store's call comes first", "ExecuteQLMCommand(LumivexToggled)"
store.Refuses = False
' Initialize ended where it wanted the ribbon, which isn't registered; a second one with it there goes the whole way.
gHelper.Component "RibbonHandler.Main2", gHelper.Raiser(1002, "no ribbon")
main.Initialize word, store, state, "Quillmere"
NoError "a second Initialize"
HeardAmongIt "the ribbon's refusal", "error 1002 in Strandline.Main2.Initialize"
CallEverything main, letter, "a ribbon that refuses"
main.Quit
NoError "a ribbon that refuses: Quit"
gHeard = ""

' The error component itself fails, or isn't there.
gHelper.Component "QuillmereError.Main2", gHelper.Raiser(1003, "no help")
Set main = CreateObject("Strandline.Main2")
CallEverything main, letter, "an error component that refuses"
gHelper.Forget "QuillmereError.Main2"
CallEverything main, letter, "without an error component"
HeardIs "nobody hears of it", ""
Set main = Nothing

' The relay.
Set relay = CreateObject("Strandline.RibbonEvents")
NoError "the relay is created by its name"
answer = relay.getToolbarIconBits("icon")
ErrorIs "a text that is no number", 13, kWrongKind
answer = relay.getToolbarIconBits(40000)
ErrorIs "a number that is too large", 6, "Overflow"
answer = relay.getToolbarIconBits
ErrorIs "no number", 450, kWrongCount
relay.run letter
ErrorIs "an object that is no command of the relay's", 13, kWrongKind
Equal "with nobody to fill them there are no bits", gHelper.ByteCount(relay.getToolbarIconBits(102)), 0
relay.run "InsertReference"
NoError "with nobody to hear it a command does nothing"
Set answer = Nothing
Set answer = CreateObject("Strandline.AdvertisementsCallbackStub")
ErrorIs "the other relay can't be created", 429, ""
Finish 269
