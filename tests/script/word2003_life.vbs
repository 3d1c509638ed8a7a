' Word 2003 with windows: documents come, are previewed and read, and go; the strip is painted over the bar and follows.
On Error Resume Next

Const kCells = 16
Const kLeft = 10
Const kTop = 3
Const kCell = 28
Const kLastCell = 100
Const kBarWidth = 560
Const kBarHeight = 36

' A document's window with the dock of its bars and the product's bar, where Word puts them.
Class PlayedFrame
  Public Window
  Public Dock
  Public Bar
  Public Sub Make(title)
    Window = gHelper.MakeWindow("OpusApp", title & " - Microsoft Word", 0, 0, 0, 800, 600)
    Dock = gHelper.MakeWindow("MsoCommandBarDock", "MsoDockTop", Window, 0, 20, 800, 80)
    Bar = gHelper.MakeWindow("MsoCommandBar", "Quillmere", Dock, 2, 30, kBarWidth, kBarHeight)
    gHelper.Activate Window
  End Sub
  Public Sub Destroy()
    gHelper.DestroyWindow Window
  End Sub
End Class

Function FrameOf(document)
  Dim made
  Set made = New PlayedFrame
  made.Make document.name
  Set FrameOf = made
End Function

Function CellLeft(i)
  CellLeft = kLeft + (i - 1) * kCell
End Function

Function CellWidth(i)
  CellWidth = kCell
  If i = kCells Then CellWidth = kLastCell
End Function

' Word tells the places of the controls on the screen.
Sub AddCells(bar)
  Dim i, control
  For i = 1 To kCells
    If i = 1 Then
      AddMenu bar
      Set control = bar.Controls.Item(1)
    Else
      Set control = New PlayedControl
      control.Caption = "control " & i
      bar.Controls.Add control, control.Caption
    End If
    control.left = 2 + CellLeft(i)
    control.top = 50 + kTop
    control.width = CellWidth(i)
    control.height = kCell
  Next
End Sub

' The cells of the strip in which something shows, as a text of their numbers.
Function PaintedCells(frame)
  Dim i, painted
  painted = ""
  For i = 1 To kCells
    If gHelper.Ink(frame.Bar, CellLeft(i), kTop, CellWidth(i), kCell) > 0 Then painted = painted & i & " "
  Next
  PaintedCells = painted
End Function

Function InkOfBar(frame)
  InkOfBar = gHelper.Ink(frame.Bar, 0, 0, kBarWidth, kBarHeight)
End Function

' The picture of the menu's cell is a transparent one: Word's own triangle stays in sight there.
Const kPicturedCells = "2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 "

Dim word, store, state, errors, main, bar, answer
Dim harvest, barley, rye, harvestFrame, barleyFrame, ryeFrame, ink, corner
Set word = New PlayedApplication
word.Version = "11.0"
Set store = New PlayedStore
Set state = New PlayedState
Set errors = New PlayedErrorComponent
Set bar = AddBar(word, "Quillmere")
AddCells bar
bar.Visible = False
AddTemplate word, "Quillmere.dot"
gHelper.Component "QuillmereError.Main2", errors
Set main = CreateObject("Strandline.Main2")
NoError "the parts are set up"
Equal "the bar has its controls", bar.Controls.Count, kCells
gHeard = ""
main.Initialize word, store, state, "Quillmere"
NoError "Initialize"
HeardIs "the bar has a row of its own", "TooltipIconIndex=401; Quillmere.RowIndex=-1; Quillmere.Left=0"

' The first document.
Set harvest = DocumentNamed("Harvest.doc")
Set harvestFrame = FrameOf(harvest)
word.Open harvest
Equal "the bar is empty at first", InkOfBar(harvestFrame), 0
Equal "nobody hooks it", gHelper.IsSubclassed(harvestFrame.Bar), False
main.HandleCreateDocument False
NoError "the first document"
HeardIs "the bar is shown", "Quillmere.Visible=True"
Equal "the bar's window is hooked", gHelper.IsSubclassed(harvestFrame.Bar), True
Equal "Word's own window isn't", gHelper.IsSubclassed(harvestFrame.Window), False
Equal "every cell with a picture is painted", PaintedCells(harvestFrame), kPicturedCells
Equal "the bar's grip stays plain", gHelper.Ink(harvestFrame.Bar, 0, 0, kLeft, kBarHeight), 0
ink = InkOfBar(harvestFrame)
gHelper.Repaint harvestFrame.Bar
Equal "the system's paint brings the same strip", InkOfBar(harvestFrame), ink
gHelper.Send harvestFrame.Bar, 5, 0, 0
gHelper.Repaint harvestFrame.Bar
gHelper.Pump 100
Equal "and so it does after a change of size", InkOfBar(harvestFrame), ink
corner = gHelper.Pixel(harvestFrame.Bar, CellLeft(14), kTop)
answer = main.Execute("ToggleLumivex")
HeardIs "the overlay goes on", "lumivexEnabled=True; ExecuteQLMCommand(LumivexToggled)"
Check "its cell is sunken then", gHelper.Pixel(harvestFrame.Bar, CellLeft(14), kTop) <> corner
answer = main.Execute("ToggleLumivex")
HeardIs "the overlay goes off", "lumivexEnabled=False; ExecuteQLMCommand(LumivexToggled)"
Equal "its cell is plain again", gHelper.Pixel(harvestFrame.Bar, CellLeft(14), kTop), corner
NoError "the first strip"

' The second document.
Set barley = DocumentNamed("Barley.doc")
Set barleyFrame = FrameOf(barley)
word.Open barley
main.HandleCreateDocument False
NoError "the second document"
HeardIs "the bar is shown already", ""
Equal "it has a hook of its own", gHelper.IsSubclassed(barleyFrame.Bar), True
Equal "the first one keeps its", gHelper.IsSubclassed(harvestFrame.Bar), True
Equal "every cell with a picture is painted there too", PaintedCells(barleyFrame), kPicturedCells
main.HandleCreateDocument False
NoError "an event that comes twice"
Equal "leaves a hook", gHelper.IsSubclassed(barleyFrame.Bar), True
main.HandleDocumentChange
HeardIs "the bookmark's entry follows the document", "Bookmarks.Exists(quick); Go to quick bookmark.Enabled=False"
Equal "the second document may close", main.HandleCloseDocument(barley), True
HeardIs "Word won't ask about the template", "Quillmere.dot.Saved=True"
Equal "its hook is gone", gHelper.IsSubclassed(barleyFrame.Bar), False
Equal "the first one's isn't", gHelper.IsSubclassed(harvestFrame.Bar), True
word.Close barley, harvest
barleyFrame.Destroy
gHelper.Activate harvestFrame.Window

' Print preview and reading layout.
answer = main.Execute("FilePrintPreview2")
HeardIs "the preview hides the bar", "Quillmere.Visible=False; Harvest.doc.PrintPreview"
answer = main.Execute("ClosePreview")
HeardIs "its end shows it", "Harvest.doc.ClosePrintPreview; Quillmere.Visible=True"
Equal "with a hook", gHelper.IsSubclassed(harvestFrame.Bar), True
answer = main.Execute("ReadingMode")
HeardIs "the reading layout hides the bar", "ReadingLayout=True; Quillmere.Visible=False"
Equal "no hook lives through it", gHelper.IsSubclassed(harvestFrame.Bar), False
main.HandleCreateDocument False
HeardIs "a creation meanwhile is left out", ""
Equal "and hooks nothing", gHelper.IsSubclassed(harvestFrame.Bar), False
answer = main.Execute("CloseReadingMode")
HeardIs "its end shows the bar", "ReadingLayout=False; Quillmere.Visible=True"
Equal "with a new hook", gHelper.IsSubclassed(harvestFrame.Bar), True
Equal "and all its pictures", PaintedCells(harvestFrame), kPicturedCells
NoError "the views"

' The last document closes; its window goes with the hook still on it.
Equal "the last document may close", main.HandleCloseDocument(harvest), True
HeardIs "the bar is hidden", "Quillmere.Visible=False; Quillmere.dot.Saved=True"
Equal "the strip waits for the next document", gHelper.IsSubclassed(harvestFrame.Bar), True
word.Close harvest, Nothing
harvestFrame.Destroy
NoError "the last document"

' And another one.
Set rye = DocumentNamed("Rye.doc")
Set ryeFrame = FrameOf(rye)
word.Open rye
main.HandleCreateDocument False
NoError "the next document"
HeardIs "the bar is shown again", "Quillmere.Visible=True"
Equal "its bar is hooked", gHelper.IsSubclassed(ryeFrame.Bar), True
Equal "and painted", PaintedCells(ryeFrame), kPicturedCells

main.Quit
NoError "Quit"
HeardIs "Quit is silent", ""
Equal "the hook is gone", gHelper.IsSubclassed(ryeFrame.Bar), False
gHelper.Repaint ryeFrame.Bar
Equal "the window paints itself again", InkOfBar(ryeFrame), 0
Set main = Nothing
ryeFrame.Destroy
NoError "the end"
Finish 55
