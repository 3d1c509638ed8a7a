' Word 2000: what it lacks isn't asked for.
On Error Resume Next

Class PlayedMail
  Public CurrentEmailAuthor
  Private Sub Class_Initialize
    Set CurrentEmailAuthor = gHelper.Collection()
  End Sub
End Class

Dim word, store, state, errors, main, bar, mail, answer
Set word = New PlayedApplication
word.Version = "9.0"
' Neither the reading layout nor the envelope: whoever asks for them is refused.
Set word.ActiveWindow = gHelper.Raiser(461, "Word 2000 has no such member")
Set word.Options = gHelper.Raiser(461, "Word 2000 has no such member")
Set store = New PlayedStore
Set state = New PlayedState
Set errors = New PlayedErrorComponent
Set bar = AddBar(word, "Quillmere")
AddMenu bar
AddTemplate word, "Quillmere.dot"
gHelper.Component "QuillmereError.Main2", errors
Set main = CreateObject("Strandline.Main2")
main.Initialize word, store, state, "Quillmere"
NoError "Initialize"
HeardIs "the bar has a row of its own", "TooltipIconIndex=401; Quillmere.RowIndex=-1; Quillmere.Left=0"
main.HandleCreateDocument False
HeardIs "the reading layout isn't asked for", ""
Equal "the manual's path", main.OpenUserManual, "C:\Quillmere\Quillmere user manual.doc"
HeardIs "the option of links isn't touched", ""

' A mail is known by its author.
Set mail = DocumentNamed("Reply")
Set mail.Email = New PlayedMail
word.Activate mail
answer = main.Execute("ClosePreview")
HeardIs "a mail has no preview to end", ""
NoError "the mail"

main.Quit
NoError "Quit"
HeardIs "Quit is silent", ""
Finish 9
