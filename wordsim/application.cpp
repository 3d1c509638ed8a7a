#include "wordsim/application.h"

#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kFirstRibbonVersion = 12;

}  // namespace

MemberTable TemplateObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&TemplateObject::NameMember>("Name"),
      Writable<&TemplateObject::SavedMember>("Saved"),
  };
  return kMembers;
}

Variant TemplateObject::NameMember(const Call&) { return mName; }
Variant TemplateObject::SavedMember(const Call& call) {
  if (!call.IsLet()) return mIsSaved;
  mIsSaved = call.Value().ToBoolean();
  return {};
}

TemplatesObject::TemplatesObject(Ref<ObjectUses> uses, const Settings& settings, Long version) : SimCollection(uses) {
  const TextView ending = version >= kFirstRibbonVersion ? u".dotm" : u".dot";
  mTemplates.push_back(New<TemplateObject>(uses, u"Normal.dot"));
  mTemplates.push_back(New<TemplateObject>(uses, Concat({settings.productName, ending})));
  for (const String& name : settings.templates) mTemplates.push_back(New<TemplateObject>(uses, name));
}

MemberTable TemplatesObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&TemplatesObject::CountMember>("Count"),
      Readable<&TemplatesObject::ItemMember>("Item", 1),
  };
  return kMembers;
}

Variant TemplatesObject::ItemMember(const Call& call) {
  const Variant index = call.Argument(0).Resolved();
  if (const String* name = index.If<String>()) {
    for (const auto& one : mTemplates) {
      if (SameText(one->Name(), *name)) return Object(one);
    }
    RaiseNoSuchElement();
  }
  const Long position = index.ToLong();
  if (position < 1 || position > Count()) RaiseNoSuchElement();
  return At(position);
}

MemberTable DialogObject::Members() const {
  static constexpr Member kMembers[] = {Method<&DialogObject::ShowMember>("Show", 0, 1)};
  return kMembers;
}

Variant DialogObject::ShowMember(const Call&) {
  constexpr Long kClosedWithOk = -1;
  mWorld.ShowDialog(mNumber);
  return kClosedWithOk;
}

MemberTable DialogsObject::Members() const {
  static constexpr Member kMembers[] = {Readable<&DialogsObject::ItemMember>("Item", 1)};
  return kMembers;
}

Variant DialogsObject::ItemMember(const Call& call) {
  const Long number = call.Argument(0).ToLong();
  if (number < 1) RaiseNoSuchElement();
  for (const auto& dialog : mDialogs) {
    if (dialog->Number() == number) return Object(dialog);
  }
  mDialogs.push_back(New<DialogObject>(SharedUses(), number, mWorld));
  return Object(mDialogs.back());
}

MemberTable OptionsObject::Members() const {
  static constexpr Member kMembers[] = {Writable<&OptionsObject::CtrlClickMember>("CtrlClickHyperlinkToOpen")};
  return kMembers;
}

Variant OptionsObject::CtrlClickMember(const Call& call) {
  if (mWorld.Version() < 10) Raise(errors::kNoSuchMember);
  if (!call.IsLet()) return mCtrlClick;
  mCtrlClick = call.Value().ToBoolean();
  return {};
}

ApplicationObject::ApplicationObject(Ref<ObjectUses> uses, WordWorld& world)
    : SimObject(uses),
      mWorld(world),
      mDocuments(New<DocumentsObject>(uses, world)),
      mTemplates(New<TemplatesObject>(uses, world.TheSettings(), world.Version())),
      mDialogs(New<DialogsObject>(uses, world)),
      mOptions(New<OptionsObject>(uses, world)),
      mCommandBars(New<CommandBarsObject>(uses, world)) {}

ApplicationObject::~ApplicationObject() = default;

MemberTable ApplicationObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&ApplicationObject::VersionMember>("Version"),
      Readable<&ApplicationObject::DocumentsMember>("Documents"),
      Readable<&ApplicationObject::ActiveDocumentMember>("ActiveDocument"),
      Readable<&ApplicationObject::ActiveWindowMember>("ActiveWindow"),
      Readable<&ApplicationObject::CommandBarsMember>("CommandBars"),
      Readable<&ApplicationObject::TemplatesMember>("Templates"),
      Readable<&ApplicationObject::DialogsMember>("Dialogs"),
      Readable<&ApplicationObject::OptionsMember>("Options"),
      Readable<&ApplicationObject::NameMember>("Name"),
  };
  return kMembers;
}

Variant ApplicationObject::NameMember(const Call&) {
  static const String kName = u"Microsoft Word";
  return kName;
}
Variant ApplicationObject::VersionMember(const Call&) { return mWorld.TheSettings().wordVersion; }
Variant ApplicationObject::DocumentsMember(const Call&) { return Object(mDocuments); }
Variant ApplicationObject::TemplatesMember(const Call&) { return Object(mTemplates); }
Variant ApplicationObject::DialogsMember(const Call&) { return Object(mDialogs); }
Variant ApplicationObject::OptionsMember(const Call&) { return Object(mOptions); }
Variant ApplicationObject::CommandBarsMember(const Call&) { return Object(mCommandBars); }

Variant ApplicationObject::ActiveDocumentMember(const Call&) {
  Document* active = mWorld.Active();
  if (!active) RaiseNoDocumentOpen();
  return Object(Ref<Document>(active));
}

Variant ApplicationObject::ActiveWindowMember(const Call&) {
  Document* active = mWorld.Active();
  if (!active) RaiseNoDocumentOpen();
  return active->WindowObject();
}

}  // namespace strandline::wordsim
