#pragma once

// An open document with what hangs on it: its variables, bookmarks, mail, window and view. Each part is an object of
// its own, made with the document and gone with it.

#include <memory>
#include <string>
#include <vector>

#include "wordsim/settings.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class Bookmarks;
class Characters;
class DocumentFrame;
class DocumentWindow;
class Email;
class Variables;
class WordWorld;

class Document final : public SimObject {
 public:
  Document(Ref<ObjectUses> uses, WordWorld& world, const String& name, OpenFlags flags, Long identity,
           std::shared_ptr<DocumentFrame> frame);
  ~Document() override;

  // A small number of the document's own, never used twice in a world.
  Long Identity() const override { return mIdentity; }
  String IdentityText() const { return DecimalText(mIdentity); }

  const String& Name() const { return mName; }
  Long CharacterCount() const { return mCharacterCount; }
  void Type(Long characters);
  bool IsMail() const { return mIsMail; }
  void SetMail(bool isMail) { mIsMail = isMail; }
  bool IsInReadingLayout() const { return mIsInReadingLayout; }
  void SetReadingLayout(bool on);
  bool IsInPreview() const { return mIsInPreview; }
  void SetBookmark(const String& name, bool on);
  void SetVariable(const String& name, const String& value);
  DocumentFrame& Frame() const { return *mFrame; }
  void ShowView() const;
  const std::shared_ptr<DocumentFrame>& SharedFrame() const { return mFrame; }
  Object WindowObject() const;
  // The document and all its parts are gone.
  void End();

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant NameMember(const Call& call);
  Variant PathMember(const Call& call);
  Variant FullNameMember(const Call& call);
  Variant SavedMember(const Call& call);
  Variant SaveMember(const Call& call);
  Variant CharactersMember(const Call& call);
  Variant VariablesMember(const Call& call);
  Variant BookmarksMember(const Call& call);
  Variant EmailMember(const Call& call);
  Variant ActiveWindowMember(const Call& call);
  Variant PrintPreviewMember(const Call& call);
  Variant ClosePrintPreviewMember(const Call& call);

  WordWorld& mWorld;
  Long mIdentity;
  std::shared_ptr<DocumentFrame> mFrame;
  String mName;
  String mPath;
  bool mIsSaved = true;
  bool mIsMail;
  bool mIsInReadingLayout;
  bool mIsInPreview = false;
  Long mCharacterCount;
  Ref<Variables> mVariables;
  Ref<Bookmarks> mBookmarks;
  Ref<Email> mEmail;
  Ref<Characters> mCharacters;
  Ref<DocumentWindow> mWindow;
};

// Application.Documents: the document that was opened last is the first.
class DocumentsObject final : public SimCollection {
 public:
  DocumentsObject(Ref<ObjectUses> uses, WordWorld& world) : SimCollection(std::move(uses)), mWorld(world) {}
  Long Count() const override;
  Object At(Long position) const override;

 protected:
  std::string ObjectName() const override { return "Documents"; }
  MemberTable Members() const override;

 private:
  Variant ItemMember(const Call& call);
  WordWorld& mWorld;
};

}  // namespace strandline::wordsim
