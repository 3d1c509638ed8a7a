#include "wordsim/document.h"

#include <algorithm>

#include "wordsim/document_frame.h"
#include "wordsim/document_parts.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kCharactersOfAFile = 1500;
constexpr Long kLongestDocument = 32'000'000;  // characters
constexpr const char16_t* kDocumentFolder = u"C:\\Documents and Settings\\User\\My Documents";

}  // namespace

Document::Document(Ref<ObjectUses> uses, WordWorld& world, const String& name, OpenFlags flags, Long identity,
                   std::shared_ptr<DocumentFrame> frame)
    : SimObject(uses),
      mWorld(world),
      mIdentity(identity),
      mFrame(std::move(frame)),
      mName(name),
      mPath(flags.blank ? String() : String(kDocumentFolder)),
      mIsMail(flags.mail),
      mIsInReadingLayout(flags.reading),
      mCharacterCount(flags.blank ? 1 : kCharactersOfAFile),
      mVariables(New<Variables>(uses, *this)),
      mBookmarks(New<Bookmarks>(uses, *this)),
      mEmail(New<Email>(uses, *this)),
      mCharacters(New<Characters>(uses, *this)),
      mWindow(New<DocumentWindow>(uses, world, *this)) {}

Document::~Document() { End(); }

void Document::End() {
  mVariables->End();
  mBookmarks->MarkGone();
  mEmail->End();
  mCharacters->MarkGone();
  mWindow->End();
  MarkGone();
}

void Document::Type(Long characters) {
  mCharacterCount = std::clamp<Long>(characters, 0, kLongestDocument - mCharacterCount) + mCharacterCount;
  mIsSaved = false;
}

void Document::SetReadingLayout(bool on) {
  mIsInReadingLayout = on;
  ShowView();
}

void Document::ShowView() const {
  mFrame->SetView(mIsInPreview ? PaperView::kPreview : mIsInReadingLayout ? PaperView::kReading : PaperView::kPage);
}

void Document::SetBookmark(const String& name, bool on) { mBookmarks->Set(name, on); }
void Document::SetVariable(const String& name, const String& value) { mVariables->Set(name, value); }
Object Document::WindowObject() const { return mWindow; }

std::string Document::ObjectName() const { return "document " + ToUtf8(mName); }

MemberTable Document::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&Document::NameMember>("Name"),
      Readable<&Document::PathMember>("Path"),
      Readable<&Document::FullNameMember>("FullName"),
      Writable<&Document::SavedMember>("Saved"),
      Method<&Document::SaveMember>("Save"),
      Readable<&Document::CharactersMember>("Characters"),
      Readable<&Document::VariablesMember>("Variables"),
      Readable<&Document::BookmarksMember>("Bookmarks"),
      Readable<&Document::EmailMember>("Email"),
      Readable<&Document::ActiveWindowMember>("ActiveWindow"),
      Method<&Document::PrintPreviewMember>("PrintPreview"),
      Method<&Document::ClosePrintPreviewMember>("ClosePrintPreview"),
  };
  return kMembers;
}

Variant Document::NameMember(const Call&) { return mName; }
Variant Document::PathMember(const Call&) { return mPath; }
Variant Document::FullNameMember(const Call&) { return mPath.IsEmpty() ? mName : Concat({mPath, u"\\", mName}); }

Variant Document::SavedMember(const Call& call) {
  if (!call.IsLet()) return mIsSaved;
  mIsSaved = call.Value().ToBoolean();
  return {};
}

Variant Document::SaveMember(const Call&) {
  // The user who is asked for a place takes the one that is offered.
  if (mPath.IsEmpty()) mPath = kDocumentFolder;
  mIsSaved = true;
  return {};
}

Variant Document::CharactersMember(const Call&) { return Object(mCharacters); }
Variant Document::VariablesMember(const Call&) { return Object(mVariables); }
Variant Document::BookmarksMember(const Call&) { return Object(mBookmarks); }
Variant Document::EmailMember(const Call&) { return Object(mEmail); }
Variant Document::ActiveWindowMember(const Call&) { return Object(mWindow); }

Variant Document::PrintPreviewMember(const Call&) {
  mIsInPreview = true;
  ShowView();
  return {};
}

Variant Document::ClosePrintPreviewMember(const Call&) {
  if (!mIsInPreview) RaiseNotAvailable();
  mIsInPreview = false;
  ShowView();
  return {};
}

Long DocumentsObject::Count() const { return static_cast<Long>(mWorld.Documents().size()); }
Object DocumentsObject::At(Long position) const { return mWorld.Documents()[static_cast<std::size_t>(position - 1)]; }

MemberTable DocumentsObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&DocumentsObject::CountMember>("Count"),
      Readable<&DocumentsObject::ItemMember>("Item", 1),
  };
  return kMembers;
}

Variant DocumentsObject::ItemMember(const Call& call) {
  const Variant index = call.Argument(0).Resolved();
  if (const String* name = index.If<String>()) {
    Document* document = mWorld.Find(*name);
    if (!document) Raise(word_errors::kBadFileName, u"Bad file name.");
    return Object(Ref<Document>(document));
  }
  const Long position = index.ToLong();
  if (position < 1 || position > Count()) RaiseNoSuchElement();
  return At(position);
}

}  // namespace strandline::wordsim
