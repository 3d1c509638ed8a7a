#include "desk/main2_calls.h"
#include "desk/scene_player.h"
#include "wordsim/document.h"
#include "wordsim/product.h"

namespace strandline::deskprogram {

namespace {

String NameOf(const Command& command) { return FromUtf8(command.Text("NAME")); }

bool IsOn(const Command& command) { return command.Text("SWITCH") == "on"; }

}  // namespace

void ScenePlayer::RequireDocument(bool found, const Command& command) const {
  if (found) return;
  std::string open;
  for (const auto& document : mSession->World().Documents()) {
    open.append(open.empty() ? "" : ", ").append(ToUtf8(document->Name().View()));
  }
  Fail("no document \"" + command.Text("NAME") + "\" is open; " + (open.empty() ? "none is" : "open are: " + open));
}

wordsim::Document& ScenePlayer::ActiveDocument() const {
  wordsim::Document* active = mSession->World().Active();
  if (!active) Fail("no document is open; open one first");
  return *active;
}

void ScenePlayer::Start(const Command&) { mSession->Start(); }

void ScenePlayer::After(const Command& command) {
  mSession->TheDesk().Clock().After(command.Number("MS"), [this, inner = command.inner] { PlayOne(*inner); });
}

void ScenePlayer::Open(const Command& command) {
  const String name = NameOf(command);
  if (mSession->World().Find(name)) {
    Fail("\"" + command.Text("NAME") + "\" is open already; activate it, or open another one");
  }
  wordsim::OpenFlags flags;
  flags.reading = command.Has("reading");
  flags.mail = command.Has("mail");
  flags.blank = command.Has("new");
  mSession->World().Open(name, flags);
  Boolean startedFromIcon = command.Has("icon");
  mSession->TheMain2().HandleCreateDocument(startedFromIcon);
}

void ScenePlayer::Activate(const Command& command) {
  RequireDocument(mSession->World().Activate(NameOf(command)), command);
  mSession->TheMain2().HandleDocumentChange();
}

void ScenePlayer::Type(const Command& command) {
  RequireDocument(mSession->World().Type(NameOf(command), static_cast<Long>(command.Number("N", 1))), command);
}

void ScenePlayer::Close(const Command& command) {
  const Ref<wordsim::Document> document = mSession->World().Find(NameOf(command));
  RequireDocument(static_cast<bool>(document), command);
  Object doc = document;
  const Boolean mayClose = mSession->TheMain2().HandleCloseDocument(doc);
  mSession->TheJournal().Add("result", Json{{"of", "close"}, {"value", mayClose}});
  if (mayClose) mSession->World().Close(NameOf(command));
}

void ScenePlayer::Vanish(const Command& command) { RequireDocument(mSession->World().Close(NameOf(command)), command); }

void ScenePlayer::Call(const Command& command) {
  const Main2Call call = CallMain2(*mSession, command.Text("OPERATION"), command.rest);
  if (!call.error.empty()) Fail(call.error);
  if (call.result) {
    mSession->TheJournal().Add("result", Json{{"of", "call"}, {"value", mSession->Naming().Value(*call.result)}});
  }
}

void ScenePlayer::Minimise(const Command& command) {
  RequireDocument(mSession->World().Minimise(NameOf(command)), command);
}

void ScenePlayer::Restore(const Command& command) {
  RequireDocument(mSession->World().Restore(NameOf(command)), command);
}

void ScenePlayer::Bookmark(const Command& command) {
  ActiveDocument();
  mSession->World().SetBookmark(NameOf(command), IsOn(command));
}

void ScenePlayer::Value(const Command& command) {
  using wordsim::ValueLevel;
  const std::string& scope = command.Text("SCOPE");
  const ValueLevel level = scope == "user"     ? ValueLevel::kUser
                           : scope == "global" ? ValueLevel::kGlobal
                                               : ValueLevel::kDocument;
  const String docId = level == ValueLevel::kDocument ? ActiveDocument().IdentityText() : String();
  mSession->World().TheProduct().ChangeValue(level, FromUtf8(command.Text("KEY")), FromUtf8(command.Text("TEXT")),
                                             docId);
}

void ScenePlayer::Variable(const Command& command) {
  ActiveDocument();
  mSession->World().SetVariable(FromUtf8(command.Text("KEY")), FromUtf8(command.Text("TEXT")));
}

void ScenePlayer::Email(const Command& command) {
  ActiveDocument();
  mSession->World().SetEmail(IsOn(command));
}

void ScenePlayer::Rename(const Command& command) {
  mSession->World().TheProduct().Rename(NameOf(command));
  mSession->TheMain2().ProductNameChanged();
}

void ScenePlayer::Quit(const Command&) {
  mHasQuit = true;
  mSession->TheMain2().Quit();
}

}  // namespace strandline::deskprogram
