#include "play/main2_calls.h"
#include "play/scene_player.h"
#include "wordsim/components.h"
#include "wordsim/document.h"
#include "wordsim/product.h"

namespace strandline::play {

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

void ScenePlayer::Start(const Command&) {
  RequireVerifier();
  const std::string wrong = mSession->Start();
  if (!wrong.empty()) Fail(wrong);
  InitializeMain2(*mSession, mSession->World().TheSettings().productName);
}

void ScenePlayer::After(const Command& command) {
  mSession->Schedule(command.Number("MS"), [this, inner = command.inner] { PlayOne(*inner); });
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
  mSession->Opened(mSession->World().Open(name, flags));
  mSession->Main2().Call("HandleCreateDocument", command.Has("icon"));
}

void ScenePlayer::Activate(const Command& command) {
  RequireDocument(mSession->World().Activate(NameOf(command)), command);
  mHandsDocument = {};
  mSession->Main2().Call("HandleDocumentChange");
}

void ScenePlayer::Type(const Command& command) {
  RequireDocument(mSession->World().Type(NameOf(command), static_cast<Long>(command.Number("N", 1))), command);
}

void ScenePlayer::Close(const Command& command) {
  const Ref<wordsim::Document> document = mSession->World().Find(NameOf(command));
  RequireDocument(static_cast<bool>(document), command);
  const Boolean mayClose = mSession->Main2().Call("HandleCloseDocument", Object(document)).ToBoolean();
  AddResult("close", mayClose);
  if (mayClose) mSession->World().Close(NameOf(command));
}

void ScenePlayer::Vanish(const Command& command) { RequireDocument(mSession->World().Close(NameOf(command)), command); }

void ScenePlayer::Call(const Command& command) {
  const Main2Call call = CallMain2(*mSession, command.Text("OPERATION"), command.rest);
  if (!call.error.empty()) Fail(call.error);
  if (call.result) AddResult("call", *call.result);
}

void ScenePlayer::Execute(const Command& command) { ExecuteCommand(FromUtf8(command.Text("COMMAND"))); }

void ScenePlayer::ExecuteCommand(const String& name) { AddResult("execute", mSession->Main2().Call("Execute", name)); }

void ScenePlayer::AddResult(const char* of, const Variant& value) {
  mSession->TheJournal().Add("result", Json{{"of", of}, {"value", mSession->Naming().Value(value)}});
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
  const String docId = level == ValueLevel::kDocument ? mSession->IdentityOf(ActiveDocument()) : String();
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
  mSession->Main2().Call("ProductNameChanged");
}

Object ScenePlayer::RibbonEvents() const {
  const wordsim::RibbonHandlerObject* ribbon = mSession->World().TheProduct().Ribbon();
  if (!ribbon) Fail("no ribbon component lives; it does from start to quit in Word 2007 and later");
  if (ribbon->Events().IsNothing()) Fail("the ribbon component was given no relay; let it be initialised first");
  return ribbon->Events();
}

void ScenePlayer::RibbonRun(const Command& command) { RibbonEvents().Call("run", FromUtf8(command.Text("COMMAND"))); }

void ScenePlayer::RibbonIcon(const Command& command) {
  AddResult("ribbon icon", RibbonEvents().Call("getToolbarIconBits", static_cast<Integer>(command.Number("INDEX"))));
}

void ScenePlayer::Quit(const Command&) {
  mHasQuit = true;
  mSession->Main2().Call("Quit");
}

}  // namespace strandline::play
