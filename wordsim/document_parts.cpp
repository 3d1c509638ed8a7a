#include "wordsim/document_parts.h"

#include <algorithm>

#include "wordsim/document_frame.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

std::string NameWith(const char* what, const Document& document) { return what + ToUtf8(document.Name()); }

// Whoever wrote the mail; nothing of it is of interest.
class EmailAuthor final : public SimObject {
 public:
  EmailAuthor(Ref<ObjectUses> uses, const Document& document) : SimObject(std::move(uses)), mDocument(document) {}

 protected:
  std::string ObjectName() const override { return NameWith("author of email ", mDocument); }
  MemberTable Members() const override { return {}; }

 private:
  const Document& mDocument;
};

}  // namespace

std::string DocumentVariable::ObjectName() const {
  return "variable " + ToUtf8(mName) + " of " + ToUtf8(mDocument.Name());
}

MemberTable DocumentVariable::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&DocumentVariable::NameMember>("Name"),
      Writable<&DocumentVariable::ValueMember>("Value"),
  };
  return kMembers;
}

Variant DocumentVariable::NameMember(const Call&) { return mName; }
Variant DocumentVariable::ValueMember(const Call& call) {
  if (!call.IsLet()) return mValue;
  mValue = call.Value().ToText();
  return {};
}

std::string Variables::ObjectName() const { return NameWith("variables ", mDocument); }

MemberTable Variables::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&Variables::CountMember>("Count"),
      Readable<&Variables::ItemMember>("Item", 1),
  };
  return kMembers;
}

DocumentVariable* Variables::Find(const String& name) const {
  for (const auto& variable : mVariables) {
    if (SameText(variable->Name(), name)) return variable.get();
  }
  return nullptr;
}

void Variables::Set(const String& name, const String& value) {
  if (DocumentVariable* variable = Find(name)) {
    variable->SetValue(value);
  } else {
    mVariables.push_back(New<DocumentVariable>(SharedUses(), mDocument, name, value));
  }
}

void Variables::End() {
  for (const auto& variable : mVariables) variable->MarkGone();
  MarkGone();
}

Variant Variables::ItemMember(const Call& call) {
  const Variant index = call.Argument(0).Resolved();
  if (const String* name = index.If<String>()) {
    DocumentVariable* variable = Find(*name);
    if (!variable) RaiseObjectDeleted();
    return Object(Ref<DocumentVariable>(variable));
  }
  const Long position = index.ToLong();
  if (position < 1 || position > Count()) RaiseNoSuchElement();
  return At(position);
}

std::string Bookmarks::ObjectName() const { return NameWith("bookmarks ", mDocument); }

MemberTable Bookmarks::Members() const {
  static constexpr Member kMembers[] = {
      Method<&Bookmarks::ExistsMember>("Exists", 1),
      Readable<&Bookmarks::CountMember>("Count"),
  };
  return kMembers;
}

void Bookmarks::Set(const String& name, bool on) {
  const auto same = [&](const String& other) { return SameText(other, name); };
  const auto at = std::find_if(mNames.begin(), mNames.end(), same);
  if (on && at == mNames.end()) mNames.push_back(name);
  if (!on && at != mNames.end()) mNames.erase(at);
}

Variant Bookmarks::ExistsMember(const Call& call) {
  const String sought = call.Argument(0).ToText();
  return std::any_of(mNames.begin(), mNames.end(), [&](const String& name) { return SameText(name, sought); });
}
Variant Bookmarks::CountMember(const Call&) { return static_cast<Long>(mNames.size()); }

Email::Email(Ref<ObjectUses> uses, const Document& document)
    : SimObject(uses), mDocument(document), mAuthor(New<EmailAuthor>(uses, document)) {}

void Email::End() {
  mAuthor->MarkGone();
  MarkGone();
}

std::string Email::ObjectName() const { return NameWith("email ", mDocument); }

MemberTable Email::Members() const {
  static constexpr Member kMembers[] = {Readable<&Email::AuthorMember>("CurrentEmailAuthor")};
  return kMembers;
}

Variant Email::AuthorMember(const Call&) {
  if (!mDocument.IsMail()) RaiseNotAvailable();
  return Object(mAuthor);
}

std::string Characters::ObjectName() const { return NameWith("characters ", mDocument); }

MemberTable Characters::Members() const {
  static constexpr Member kMembers[] = {Readable<&Characters::CountMember>("Count")};
  return kMembers;
}

Variant Characters::CountMember(const Call&) { return mDocument.CharacterCount(); }

DocumentWindow::DocumentWindow(Ref<ObjectUses> uses, const WordWorld& world, Document& document)
    : SimObject(uses), mWorld(world), mDocument(document), mView(New<DocumentView>(uses, world, document)) {}

void DocumentWindow::End() {
  mView->MarkGone();
  MarkGone();
}

std::string DocumentWindow::ObjectName() const { return NameWith("window ", mDocument); }

MemberTable DocumentWindow::Members() const {
  static constexpr Member kMembers[] = {
      Writable<&DocumentWindow::WindowStateMember>("WindowState"),
      Readable<&DocumentWindow::ViewMember>("View"),
      Writable<&DocumentWindow::EnvelopeVisibleMember>("EnvelopeVisible"),
      Readable<&DocumentWindow::CaptionMember>("Caption"),
  };
  return kMembers;
}

Variant DocumentWindow::WindowStateMember(const Call& call) {
  DocumentFrame& frame = mDocument.Frame();
  if (!call.IsLet()) return static_cast<Long>(frame.State());
  const Long state = call.Value().ToLong();
  if (state < 0 || state > 2) Raise(errors::kInvalidArgument);
  frame.SetState(static_cast<FrameState>(state));
  return {};
}

Variant DocumentWindow::ViewMember(const Call&) { return Object(mView); }

Variant DocumentWindow::EnvelopeVisibleMember(const Call& call) {
  if (mWorld.Version() < 10) Raise(errors::kNoSuchMember);
  if (!call.IsLet()) return mDocument.IsMail();
  mDocument.SetMail(call.Value().ToBoolean());
  return {};
}

Variant DocumentWindow::CaptionMember(const Call&) { return mDocument.Name(); }

std::string DocumentView::ObjectName() const { return NameWith("view ", mDocument); }

MemberTable DocumentView::Members() const {
  static constexpr Member kMembers[] = {Writable<&DocumentView::ReadingLayoutMember>("ReadingLayout")};
  return kMembers;
}

Variant DocumentView::ReadingLayoutMember(const Call& call) {
  if (mWorld.Version() < 11) Raise(errors::kNoSuchMember);
  if (!call.IsLet()) return mDocument.IsInReadingLayout();
  mDocument.SetReadingLayout(call.Value().ToBoolean());
  return {};
}

}  // namespace strandline::wordsim
