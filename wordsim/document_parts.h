#pragma once

// What hangs on a document: variables, bookmarks, mail, characters, and its window with the view in it.

#include <string>
#include <vector>

#include "wordsim/document.h"

namespace strandline::wordsim {

// A document variable. Its name and its value are texts.
class DocumentVariable final : public SimObject {
 public:
  DocumentVariable(Ref<ObjectUses> uses, const Document& document, const String& name, const String& value)
      : SimObject(std::move(uses)), mDocument(document), mName(name), mValue(value) {}
  const String& Name() const { return mName; }
  void SetValue(const String& value) { mValue = value; }

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant NameMember(const Call& call);
  Variant ValueMember(const Call& call);
  const Document& mDocument;
  String mName;
  String mValue;
};

// In the order of their adding; a name is there once, compared without case.
class Variables final : public SimCollection {
 public:
  Variables(Ref<ObjectUses> uses, const Document& document) : SimCollection(std::move(uses)), mDocument(document) {}
  Long Count() const override { return static_cast<Long>(mVariables.size()); }
  Object At(Long position) const override { return mVariables[static_cast<std::size_t>(position - 1)]; }
  void Set(const String& name, const String& value);
  void End();

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  DocumentVariable* Find(const String& name) const;
  Variant ItemMember(const Call& call);
  const Document& mDocument;
  std::vector<Ref<DocumentVariable>> mVariables;
};

class Bookmarks final : public SimObject {
 public:
  Bookmarks(Ref<ObjectUses> uses, const Document& document) : SimObject(std::move(uses)), mDocument(document) {}
  void Set(const String& name, bool on);

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant ExistsMember(const Call& call);
  Variant CountMember(const Call& call);
  const Document& mDocument;
  std::vector<String> mNames;
};

// Every document has one, but only a mail has an author in it.
class Email final : public SimObject {
 public:
  Email(Ref<ObjectUses> uses, const Document& document);
  void End();

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant AuthorMember(const Call& call);
  const Document& mDocument;
  Ref<SimObject> mAuthor;
};

class Characters final : public SimObject {
 public:
  Characters(Ref<ObjectUses> uses, const Document& document) : SimObject(std::move(uses)), mDocument(document) {}

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant CountMember(const Call& call);
  const Document& mDocument;
};

class DocumentView;

// The window as the object model knows it; what the user sees of it is the DocumentFrame.
class DocumentWindow final : public SimObject {
 public:
  DocumentWindow(Ref<ObjectUses> uses, const WordWorld& world, Document& document);
  void End();

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant WindowStateMember(const Call& call);
  Variant ViewMember(const Call& call);
  Variant EnvelopeVisibleMember(const Call& call);
  Variant CaptionMember(const Call& call);
  const WordWorld& mWorld;
  Document& mDocument;
  Ref<DocumentView> mView;
};

class DocumentView final : public SimObject {
 public:
  DocumentView(Ref<ObjectUses> uses, const WordWorld& world, Document& document)
      : SimObject(std::move(uses)), mWorld(world), mDocument(document) {}

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant ReadingLayoutMember(const Call& call);
  const WordWorld& mWorld;
  Document& mDocument;
};

}  // namespace strandline::wordsim
