' Word 2003 without a document: start, the commands that need no window, Quit. Then a second start, with the bar at the
' bottom of the window.
On Error Resume Next

Dim word, store, state, errors, main, bar, drawing, letter, answer, command
Set word = New PlayedApplication
word.Version = "11.0"
Set store = New PlayedStore
Set state = New PlayedState
Set errors = New PlayedErrorComponent
Set bar = AddBar(word, "Quillmere")
AddMenu bar
Set drawing = AddBar(word, "Drawing")
AddTemplate word, "Normal.dot"
AddTemplate word, "Quillmere.dot"
gHelper.Component "QuillmereError.Main2", errors
Set main = CreateObject("Strandline.Main2")
NoError "the parts are set up"

main.Initialize word, store, state, "Quillmere"
NoError "Initialize"
HeardIs "Initialize gives the bar a row of its own", _
    "TooltipIconIndex=401; Quillmere.RowIndex=-1; Quillmere.Left=0"
Check "there is no ribbon", main.RibbonHandler Is Nothing

' The product may tell of a document that Word doesn't have yet.
main.HandleCreateDocument False
HeardIs "an event that comes too early is left out", ""
main.HandleDocumentChange
HeardIs "without a document there is no bookmark to go to", "Go to quick bookmark.Enabled=False"
main.EnableGotoQuickBookmark True
HeardIs "the menu's entry can be enabled", "Go to quick bookmark.Enabled=True"
NoError "the documents' events"

command = "ToggleLumivex"
answer = main.Execute(command)
Equal "a command without an answer", answer, ""
HeardIs "the overlay goes on, and the product hears of it", "lumivexEnabled=True; ExecuteQLMCommand(LumivexToggled)"
answer = main.Execute("togglelumivex")
HeardIs "and off", "lumivexEnabled=False; ExecuteQLMCommand(LumivexToggled)"
Equal "the manual's path", main.Execute("OpenUserManual"), "C:\Quillmere\Quillmere user manual.doc"
HeardIs "its links work on a plain click", "CtrlClickHyperlinkToOpen=False"
answer = main.Execute("UseQuillmere")
HeardIs "the ribbon's command does nothing", ""
answer = main.Execute("ClickOnAd")
HeardAmongIt "without a strip there is no advertisement", "error 13 in Strandline.Main2.Toolbars[Get]"
state.productName = "Halcyra"
answer = main.Execute("ProductNameChanged")
HeardIs "the second product's icon", "TooltipIconIndex=402"
state.productName = "Quillmere"
NoError "the commands"

' A document that is new and blank isn't worth a question.
Set letter = DocumentNamed("Document1")
letter.Saved = False
letter.Path = ""
letter.Characters.Add vbCr
HeardIs "the document is changed", "Document1.Saved=False"
Equal "it may close", main.HandleCloseDocument(letter), True
HeardIs "and Word won't ask about the template", "Quillmere.dot.Saved=True"

main.Quit
NoError "Quit"
HeardAmongIt "Quit meets the entry that ClickOnAd has left", "error 13 in Strandline.Main2.Toolbars[Get]"
main.Quit
NoError "a second Quit"
HeardIs "does nothing", ""
Set main = Nothing

bar.Position = 3
bar.Visible = True
gHeard = ""
Set main = CreateObject("Strandline.Main2")
main.Initialize word, store, state, "Quillmere"
NoError "Initialize of the next one"
HeardIs "at the bottom the bar shares a row with Word's own", _
    "TooltipIconIndex=401; Drawing.Position=3; Drawing.RowIndex=1; Drawing.Left=0; Drawing.Visible=True; " & _
    "Quillmere.RowIndex=1; Quillmere.Left=999"
Set main = Nothing
NoError "the object's end without Quit"
HeardIs "the end is silent", ""
Finish 28
