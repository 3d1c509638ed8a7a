' The parts that scripts play: Word, the product and its components. Calls and changes are noted; reads aren't, but for
' those that ask something.

Dim gHelper
Set gHelper = CreateObject("StrandlineTest.Helper")

Class PlayedApplication
  Public Version
  Public Documents
  Public CommandBars
  Public Templates
  Public Dialogs
  Public Options
  Public ActiveWindow
  Private mActive
  Private Sub Class_Initialize
    Set Documents = gHelper.Collection()
    Set CommandBars = gHelper.Collection()
    Set Templates = gHelper.Collection()
    Set Dialogs = New PlayedDialogs
    Set Options = New PlayedOptions
    Set ActiveWindow = New PlayedWindow
    Set mActive = Nothing
  End Sub
  Public Property Get ActiveDocument()
    If mActive Is Nothing Then Err.Raise 4248, "Word", "no document is open"
    Set ActiveDocument = mActive
  End Property
  Public Sub Open(document)
    Documents.Add document, document.name
    Set mActive = document
  End Sub
  ' The document closes; another one, or Nothing, becomes the active one.
  Public Sub Close(document, nextActive)
    Documents.Remove document.name
    Set mActive = nextActive
  End Sub
  Public Sub Activate(document)
    Set mActive = document
  End Sub
End Class

Class PlayedDocument
  Public name
  Public Path
  Public Bookmarks
  Public Characters
  Public Email
  Private mSaved
  Private Sub Class_Initialize
    Path = "C:\Papers"
    mSaved = True
    Set Bookmarks = New PlayedBookmarks
    Set Characters = gHelper.Collection()
    Set Email = Nothing
  End Sub
  Public Property Get Saved()
    Saved = mSaved
  End Property
  Public Property Let Saved(value)
    Note name & ".Saved=" & value
    mSaved = value
  End Property
  Public Sub PrintPreview()
    Note name & ".PrintPreview"
  End Sub
  Public Sub ClosePrintPreview()
    Note name & ".ClosePrintPreview"
  End Sub
End Class

Function DocumentNamed(name)
  Dim made
  Set made = New PlayedDocument
  made.name = name
  Set DocumentNamed = made
End Function

Class PlayedBookmarks
  Public Present
  Private Sub Class_Initialize
    Present = ""
  End Sub
  Public Function Exists(name)
    Note "Bookmarks.Exists(" & name & ")"
    Exists = (name = Present)
  End Function
End Class

Class PlayedWindow
  Public View
  Public EnvelopeVisible
  Private Sub Class_Initialize
    Set View = New PlayedView
    EnvelopeVisible = False
  End Sub
End Class

Class PlayedView
  Private mReading
  Private Sub Class_Initialize
    mReading = False
  End Sub
  Public Property Get ReadingLayout()
    ReadingLayout = mReading
  End Property
  Public Property Let ReadingLayout(value)
    Note "ReadingLayout=" & value
    mReading = value
  End Property
End Class

Class PlayedOptions
  Public Property Let CtrlClickHyperlinkToOpen(value)
    Note "CtrlClickHyperlinkToOpen=" & value
  End Property
End Class

Class PlayedDialogs
  Public Function Item(number)
    Dim made
    Set made = New PlayedDialog
    made.Number = number
    Set Item = made
  End Function
End Class

Class PlayedDialog
  Public Number
  Public Function Show()
    Note "Dialog(" & Number & ").Show"
    Show = -1
  End Function
End Class

Class PlayedTemplate
  Public Name
  Public Property Let Saved(value)
    Note Name & ".Saved=" & value
  End Property
End Class

Sub AddTemplate(application, name)
  Dim made
  Set made = New PlayedTemplate
  made.Name = name
  application.Templates.Add made, name
End Sub

Class PlayedBar
  Public Name
  Public Controls
  Private mPosition
  Private mVisible
  Private Sub Class_Initialize
    mPosition = 1
    mVisible = True
    Set Controls = gHelper.Collection()
  End Sub
  Public Property Get Position()
    Position = mPosition
  End Property
  Public Property Let Position(value)
    Note Name & ".Position=" & value
    mPosition = value
  End Property
  Public Property Get Visible()
    Visible = mVisible
  End Property
  Public Property Let Visible(value)
    Note Name & ".Visible=" & value
    mVisible = value
  End Property
  Public Property Let RowIndex(value)
    Note Name & ".RowIndex=" & value
  End Property
  Public Property Let Left(value)
    Note Name & ".Left=" & value
  End Property
End Class

Function AddBar(application, name)
  Dim made
  Set made = New PlayedBar
  made.Name = name
  application.CommandBars.Add made, name
  Set AddBar = made
End Function

Class PlayedControl
  Public left
  Public top
  Public width
  Public height
  Public isPriorityDropped
  Public Caption
  Public Controls
  Private mEnabled
  Private Sub Class_Initialize
    isPriorityDropped = False
    mEnabled = True
    Set Controls = Nothing
  End Sub
  Public Property Let Enabled(value)
    Note Caption & ".Enabled=" & value
    mEnabled = value
  End Property
  Public Property Get Enabled()
    Enabled = mEnabled
  End Property
End Class

' The product's menu on the bar, with the entry that goes to the bookmark.
Sub AddMenu(bar)
  Dim menu, entry
  Set menu = New PlayedControl
  menu.Caption = bar.Name
  Set menu.Controls = gHelper.Collection()
  Set entry = New PlayedControl
  entry.Caption = "Go to quick bookmark"
  menu.Controls.Add entry, entry.Caption
  bar.Controls.Add menu, bar.Name
End Sub

Class PlayedTooltip
  Public Property Let TooltipIconIndex(value)
    Note "TooltipIconIndex=" & value
  End Property
  Public Function TooltipBackground(text)
    TooltipBackground = text
  End Function
End Class

Class PlayedStore
  Public tooltip
  Public InstallPath
  Public CommonAppPath
  Public Refuses
  Private Sub Class_Initialize
    Set tooltip = New PlayedTooltip
    InstallPath = "C:\Quillmere\"
    CommonAppPath = "C:\Common\"
    Refuses = False
  End Sub
  ' With the command alone: one who sends a parameter too would fail here.
  Public Function ExecuteQLMCommand(command)
    Note "ExecuteQLMCommand(" & command & ")"
    If Refuses Then Err.Raise 1000, "store", "the store refuses"
    ExecuteQLMCommand = Empty
  End Function
  Public Function GlobalValue(key)
    GlobalValue = ""
  End Function
End Class

Class PlayedState
  Public productName
  Private mLumivex
  Private Sub Class_Initialize
    productName = "Quillmere"
    mLumivex = False
  End Sub
  Public Property Get lumivexEnabled()
    lumivexEnabled = mLumivex
  End Property
  Public Property Let lumivexEnabled(value)
    Note "lumivexEnabled=" & value
    mLumivex = value
  End Property
  Public Function WebsiteAddress(flag, text)
    WebsiteAddress = "http://www.quillmere.example/"
  End Function
End Class

' Answers each error with what the script has set: 0 ends the procedure, 5 goes on behind the statement.
Class PlayedErrorComponent
  Public Answer
  Public LastDescription
  Private Sub Class_Initialize
    Answer = 0
  End Sub
  Public Sub vbwInitializeProtector(catchException, traceLine, traceProc, callStack, systemInfo, screenshot)
    Note "error component(" & catchException & ", " & traceLine & ", " & traceProc & ", " & callStack & ", " & _
         systemInfo & ", " & screenshot & ")"
  End Sub
  Public Function vbwErrorHandler(number, description, project, source, procedure, line, calls, names)
    Note "error " & number & " in " & project & "." & source & "." & procedure
    LastDescription = description
    vbwErrorHandler = Answer
  End Function
  Public Function vbwReportParameter(name, value)
    vbwReportParameter = name
  End Function
End Class
