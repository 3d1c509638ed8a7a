' Word 2007: the ribbon in the place of the strip. A whole life, from Initialize to the second Quit; after each step,
' what Word, the product and its components have heard.
On Error Resume Next

Class PlayedRibbon
  Public Events
  Public Listener
  Public IconCount
  Public IconStart
  Public Sub Initialize(relay, name)
    Note "ribbon.Initialize(" & TextOf(relay Is Nothing) & ", " & name & ")"
    Dim bits
    Set Events = relay
    Set Listener = gHelper.Listen(relay)
    bits = relay.getToolbarIconBits(102)
    IconCount = gHelper.ByteCount(bits)
    IconStart = gHelper.ByteText(bits, 4)
    relay.run "InsertReference"
  End Sub
  Public Sub EnableToolbar(value)
    Note "ribbon.EnableToolbar(" & value & ")"
  End Sub
  Public Sub EnableGotoQuickBookmark(value)
    Note "ribbon.EnableGotoQuickBookmark(" & value & ")"
  End Sub
  Public Sub UpdateLumivexIcon(value)
    Note "ribbon.UpdateLumivexIcon(" & value & ")"
  End Sub
  Public Sub ProductNameChanged(name)
    Note "ribbon.ProductNameChanged(" & name & ")"
  End Sub
  Public Sub ActivateQuillmereTab(bar)
    Note "ribbon.ActivateQuillmereTab(" & bar.Name & ")"
  End Sub
End Class

Dim word, store, state, productName, ribbon, errors, main, letter, paper, bar, ribbonBar
Set word = New PlayedApplication
word.Version = "12.0"
Set store = New PlayedStore
Set state = New PlayedState
Set ribbon = New PlayedRibbon
Set errors = New PlayedErrorComponent
Set bar = AddBar(word, "Quillmere")
Set ribbonBar = AddBar(word, "Ribbon")
AddTemplate word, "Normal.dotm"
AddTemplate word, "Quillmere.dotm"
gHelper.Component "RibbonHandler.Main2", ribbon
gHelper.Component "QuillmereError.Main2", errors
NoError "the parts are set up"

Set main = CreateObject("Strandline.Main2")
NoError "Main2 is created by its name"
Check "Main2 has no ribbon before Initialize", main.RibbonHandler Is Nothing

productName = "Quillmere"
main.Initialize word, store, state, productName
NoError "Initialize"
HeardIs "Initialize hides the bar, makes the ribbon and lets it call back", _
    "TooltipIconIndex=401; ExecuteQLMCommand(LumivexToggled); Quillmere.Visible=False; " & _
    "ribbon.Initialize(False, Quillmere); ExecuteQLMCommand(InsertReference)"
Equal "Initialize leaves the caller's product name", productName, "Quillmere"
Check "RibbonHandler is the script's own object", main.RibbonHandler Is ribbon
Check "the icon has bytes", ribbon.IconCount > 100
Equal "the icon is the picture's file as it stands", ribbon.IconStart, "GIF8"
Equal "another sink hears both events, with the bits that were filled", ribbon.Listener.Heard, _
    "getToolbarIconBits(102, " & ribbon.IconCount & " bytes)" & vbLf & "run(InsertReference)" & vbLf
ribbon.Listener.Clear

' Documents.
Dim fromIcon, mayClose
Set letter = DocumentNamed("Letter.docx")
Set paper = DocumentNamed("Paper.docx")
word.Open letter
fromIcon = False
main.HandleCreateDocument fromIcon
NoError "HandleCreateDocument"
HeardIs "a document enables the ribbon", "ribbon.EnableToolbar(True)"
fromIcon = True
main.HandleCreateDocument fromIcon
HeardIs "a start from the icon shows the product's tab", "ribbon.EnableToolbar(True); ribbon.ActivateQuillmereTab(Ribbon)"
Equal "HandleCreateDocument leaves the caller's variable", fromIcon, True
main.HandleDocumentChange
HeardIs "a document without the bookmark", "Bookmarks.Exists(quick); ribbon.EnableGotoQuickBookmark(False)"
letter.Bookmarks.Present = "quick"
main.HandleDocumentChange
HeardIs "a document with the bookmark", "Bookmarks.Exists(quick); ribbon.EnableGotoQuickBookmark(True)"
main.EnableGotoQuickBookmark False
HeardIs "the bookmark's entry directly", "ribbon.EnableGotoQuickBookmark(False)"
NoError "the documents' events"

' Every command by its name.
Dim command, answer
command = "ToggleLumivex"
answer = main.Execute(command)
NoError "Execute"
Equal "a command without an answer gives the empty text", answer, ""
Equal "Execute leaves the caller's variable", command, "ToggleLumivex"
HeardIs "the overlay goes on", _
    "lumivexEnabled=True; ribbon.UpdateLumivexIcon(True); ExecuteQLMCommand(LumivexToggled)"
answer = main.Execute("tOGGLElUMIVEX")
HeardIs "letters count without case, and it goes off", _
    "lumivexEnabled=False; ribbon.UpdateLumivexIcon(False); ExecuteQLMCommand(LumivexToggled)"
main.ToggleLumivex
HeardIs "called directly", "lumivexEnabled=True; ribbon.UpdateLumivexIcon(True); ExecuteQLMCommand(LumivexToggled)"
Equal "OpenUserManual answers the manual's path", main.Execute("OpenUserManual"), "C:\Quillmere\Quillmere user manual.doc"
HeardIs "links work on a plain click then", "CtrlClickHyperlinkToOpen=False"
Equal "and directly", main.OpenUserManual, "C:\Quillmere\Quillmere user manual.doc"
HeardIs "again", "CtrlClickHyperlinkToOpen=False"
answer = main.Execute("ReadingMode")
HeardIs "the reading layout begins", "ReadingLayout=True"
answer = main.Execute("ReadingModeLayout")
HeardIs "its other name ends it", "ReadingLayout=False"
answer = main.Execute("CloseReadingMode")
HeardIs "ending it goes by no state", "ReadingLayout=False"
answer = main.Execute("FilePrintPreview2")
HeardIs "the print preview", "Letter.docx.PrintPreview"
answer = main.Execute("ClosePreview")
HeardIs "its end", "Letter.docx.ClosePrintPreview"
word.ActiveWindow.EnvelopeVisible = True
answer = main.Execute("ClosePreview")
HeardIs "a mail has no preview to end", ""
word.ActiveWindow.EnvelopeVisible = False
answer = main.Execute("ShrinkToolbar")
HeardIs "there is nothing to shrink", ""
answer = main.Execute("ClickOnAd")
HeardAmongIt "without a strip there is no advertisement", "error 91 in Strandline.Main2.Toolbars[Get]"
answer = main.Execute("UseQuillmere")
HeardIs "UseQuillmere shows the tab and inserts a reference", _
    "ribbon.ActivateQuillmereTab(Ribbon); ExecuteQLMCommand(InsertReference)"
answer = main.Execute("HandleDocumentChange")
HeardIs "a document's event as a command", "Bookmarks.Exists(quick); ribbon.EnableGotoQuickBookmark(True)"
NoError "the commands"

' A second product name.
state.productName = "Halcyra"
answer = main.Execute("ProductNameChanged")
HeardIs "the ribbon learns the new name", _
    "TooltipIconIndex=402; ribbon.ProductNameChanged(Halcyra); ribbon.UpdateLumivexIcon(True); " & _
    "ExecuteQLMCommand(LumivexToggled)"
state.productName = "Quillmere"
main.ProductNameChanged
HeardIs "and the old one", _
    "TooltipIconIndex=401; ribbon.ProductNameChanged(Quillmere); ribbon.UpdateLumivexIcon(True); " & _
    "ExecuteQLMCommand(LumivexToggled)"

' What fails inside goes to the error component and never to the caller.
answer = main.Execute("NoSuchCommand")
NoError "an unknown command is no error of the caller's"
Equal "it has no answer", answer, ""
HeardIs "the error component hears of it", _
    "error component(True, False, False, True, True, True); error 438 in Strandline.Main2.Execute"
answer = main.Execute("EnableGotoQuickBookmark")
HeardIs "a command that needs an argument", _
    "error component(True, False, False, True, True, True); error 450 in Strandline.Main2.Execute"

' The documents close.
word.Open paper
mayClose = main.HandleCloseDocument(paper)
NoError "HandleCloseDocument"
Equal "one of two documents may close", mayClose, True
HeardIs "the ribbon stays enabled", "Quillmere.dotm.Saved=True"
word.Close paper, letter
mayClose = main.HandleCloseDocument(letter)
Equal "the last one too", mayClose, True
HeardIs "the ribbon has nothing to work on", "ribbon.EnableToolbar(False); Quillmere.dotm.Saved=True"
word.Close letter, Nothing
main.HandleDocumentChange
HeardIs "without a document there is no bookmark", "ribbon.EnableGotoQuickBookmark(False)"

' The end.
ribbon.Listener.Clear
answer = main.Execute("Quit")
NoError "Quit"
HeardIs "Quit is silent", ""
Check "the ribbon is let go", main.RibbonHandler Is Nothing
main.Quit
NoError "a second Quit"
HeardIs "does nothing", ""

' The relay outlives it and has only the other sink now.
ribbon.Events.run "Late"
HeardIs "the product doesn't hear the relay any more", ""
Equal "the other sink does", ribbon.Listener.Heard, "run(Late)" & vbLf
ribbon.Listener.Answer "getToolbarIconBits", "own bits"
Equal "and can answer", gHelper.ByteText(ribbon.Events.getToolbarIconBits(7), 99), "own bits"
ribbon.Listener.Stop
Equal "without a sink there are no bits", gHelper.ByteCount(ribbon.Events.getToolbarIconBits(102)), 0
NoError "the relay alone"

Set main = Nothing
NoError "the object's end"
Finish 62
