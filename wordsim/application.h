#pragma once

// Word's Application and the small objects at its root: options, dialogs, templates.

#include <string>
#include <vector>

#include "wordsim/settings.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class CommandBarsObject;
class DocumentsObject;
class WordWorld;

class TemplateObject final : public SimObject {
 public:
  TemplateObject(Ref<ObjectUses> uses, const String& name) : SimObject(std::move(uses)), mName(name) {}
  const String& Name() const { return mName; }
  bool IsSaved() const { return mIsSaved; }
  void MarkChanged() { mIsSaved = false; }

 protected:
  std::string ObjectName() const override { return "template " + ToUtf8(mName); }
  MemberTable Members() const override;

 private:
  Variant NameMember(const Call& call);
  Variant SavedMember(const Call& call);
  String mName;
  bool mIsSaved = true;
};

// "Normal", the product's own, then the others.
class TemplatesObject final : public SimCollection {
 public:
  TemplatesObject(Ref<ObjectUses> uses, const Settings& settings, Long version);
  Long Count() const override { return static_cast<Long>(mTemplates.size()); }
  Object At(Long position) const override { return mTemplates[static_cast<std::size_t>(position - 1)]; }
  TemplateObject& OfTheProduct() const { return *mTemplates[1]; }

 protected:
  std::string ObjectName() const override { return "Templates"; }
  MemberTable Members() const override;

 private:
  Variant ItemMember(const Call& call);
  std::vector<Ref<TemplateObject>> mTemplates;
};

class DialogObject final : public SimObject {
 public:
  DialogObject(Ref<ObjectUses> uses, Long number, WordWorld& world)
      : SimObject(std::move(uses)), mNumber(number), mWorld(world) {}
  Long Number() const { return mNumber; }

 protected:
  std::string ObjectName() const override { return "dialog " + std::to_string(mNumber); }
  MemberTable Members() const override;

 private:
  Variant ShowMember(const Call& call);
  Long mNumber;
  WordWorld& mWorld;
};

// Word's own dialogs by number.
class DialogsObject final : public SimObject {
 public:
  DialogsObject(Ref<ObjectUses> uses, WordWorld& world) : SimObject(std::move(uses)), mWorld(world) {}

 protected:
  std::string ObjectName() const override { return "Dialogs"; }
  MemberTable Members() const override;

 private:
  Variant ItemMember(const Call& call);
  WordWorld& mWorld;
  std::vector<Ref<DialogObject>> mDialogs;
};

class OptionsObject final : public SimObject {
 public:
  OptionsObject(Ref<ObjectUses> uses, const WordWorld& world) : SimObject(std::move(uses)), mWorld(world) {}

 protected:
  std::string ObjectName() const override { return "Options"; }
  MemberTable Members() const override;

 private:
  Variant CtrlClickMember(const Call& call);
  const WordWorld& mWorld;
  bool mCtrlClick = true;
};

class ApplicationObject final : public SimObject {
 public:
  ApplicationObject(Ref<ObjectUses> uses, WordWorld& world);
  ~ApplicationObject() override;
  // In which Word keeps what is changed of the product's bar.
  TemplateObject& ProductTemplate() const { return mTemplates->OfTheProduct(); }

 protected:
  std::string ObjectName() const override { return "Application"; }
  MemberTable Members() const override;

 private:
  Variant NameMember(const Call& call);
  Variant VersionMember(const Call& call);
  Variant DocumentsMember(const Call& call);
  Variant ActiveDocumentMember(const Call& call);
  Variant ActiveWindowMember(const Call& call);
  Variant TemplatesMember(const Call& call);
  Variant DialogsMember(const Call& call);
  Variant OptionsMember(const Call& call);
  Variant CommandBarsMember(const Call& call);

  WordWorld& mWorld;
  Ref<DocumentsObject> mDocuments;
  Ref<TemplatesObject> mTemplates;
  Ref<DialogsObject> mDialogs;
  Ref<OptionsObject> mOptions;
  Ref<CommandBarsObject> mCommandBars;
};

}  // namespace strandline::wordsim
