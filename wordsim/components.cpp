#include "wordsim/components.h"

#include "wordsim/product.h"

namespace strandline::wordsim {

namespace {

// A value as a line of a report shows it.
String ReportText(const Variant& given) {
  const Variant value = given.Resolved();
  if (const Object* object = value.If<Object>()) {
    if (object->IsNothing()) return u"Nothing";
    const String name = FromUtf8(JournalNameOf(*object));
    return name.IsEmpty() ? String(u"Object") : name;
  }
  if (value.IsEmpty()) return u"Empty";
  try {
    return value.ToText();
  } catch (const Error&) {
    return u"?";
  }
}

String ReportLine(const Variant& name, const Variant& value) {
  return Concat({name.ToText(), u" = ", ReportText(value)});
}

// What the relay gives for the product's icon; nothing where it doesn't answer, or nobody stands behind it.
Long SizeOfIcon(const Object& relay) {
  constexpr Integer kIcon = 102;
  if (relay.IsNothing()) return 0;
  try {
    const Variant bits = relay.Call("getToolbarIconBits", kIcon);
    const auto* bytes = bits.If<Variant::Shared<Byte>>();
    return bytes ? static_cast<Long>((*bytes)->Elements().size()) : 0;
  } catch (const Error&) {
    return 0;
  }
}

}  // namespace

MemberTable FormatterObject::Members() const {
  static constexpr Member kMembers[] = {Method<&FormatterObject::GetMetaDataMember>("getMetaData", 1)};
  return kMembers;
}

// Fills the dictionary that the caller hands in; a caller without one gets one.
Variant FormatterObject::GetMetaDataMember(const Call& call) {
  const Variant& given = call.Argument(0);
  Object data = given.ToObject();
  if (data.IsNothing()) {
    data = mPlatform.components->CreateDictionary();
    given.Assign(data);
  }
  data.Let("Item", u"displayName", mContent.displayName);
  data.Let("Item", u"defaultOutputType", mContent.outputType);
  data.Let("Item", u"version", u"1.0");
  return String(mContent.displayName);
}

MemberTable ErrorObject::Members() const {
  static constexpr Member kMembers[] = {
      Method<&ErrorObject::InitializeMember>("vbwInitializeProtector", 6),
      Method<&ErrorObject::ErrorHandlerMember>("vbwErrorHandler", 8),
      Method<&ErrorObject::ReportVariableMember>("vbwReportVariable", 2, 3),
      Method<&ErrorObject::ReportParameterMember>("vbwReportParameter", 2),
      Method<&ErrorObject::ReportObjectMember>("vbwReportObject", 3),
      Method<&ErrorObject::ReportToFileMember>("vbwReportToFile", 1),
      Method<&ErrorObject::OpenDumpFileMember>("vbwOpenDumpFile"),
      Method<&ErrorObject::CloseDumpFileMember>("vbwCloseDumpFile"),
      Method<&ErrorObject::ExitThreadMember>("vbwExitThread"),
  };
  return kMembers;
}

Variant ErrorObject::InitializeMember(const Call&) { return {}; }
Variant ErrorObject::ErrorHandlerMember(const Call&) { return mProduct.NextErrorAnswer(); }

Variant ErrorObject::ReportVariableMember(const Call& call) {
  mProduct.Report(ReportLine(call.Argument(0), call.Argument(1)));
  return {};
}

Variant ErrorObject::ReportParameterMember(const Call& call) { return ReportLine(call.Argument(0), call.Argument(1)); }

Variant ErrorObject::ReportObjectMember(const Call& call) {
  mProduct.Report(ReportLine(call.Argument(0), call.Argument(2)));
  return {};
}

Variant ErrorObject::ReportToFileMember(const Call& call) {
  mProduct.Report(call.Argument(0).ToText());
  return {};
}

Variant ErrorObject::OpenDumpFileMember(const Call&) { return {}; }
Variant ErrorObject::CloseDumpFileMember(const Call&) { return {}; }

Variant ErrorObject::ExitThreadMember(const Call&) {
  if (mProduct.TheHooks().exitThread) mProduct.TheHooks().exitThread();
  return {};
}

RibbonHandlerObject::RibbonHandlerObject(Ref<ObjectUses> uses, TextView progId, Product& product)
    : ComponentObject(std::move(uses), progId), mProduct(product) {
  mProduct.SetRibbon(this);
}

RibbonHandlerObject::~RibbonHandlerObject() {
  if (!IsGone() && mProduct.Ribbon() == this) mProduct.SetRibbon(nullptr);
}

MemberTable RibbonHandlerObject::Members() const {
  static constexpr Member kMembers[] = {
      Method<&RibbonHandlerObject::InitializeMember>("Initialize", 2),
      Method<&RibbonHandlerObject::EnableToolbarMember>("EnableToolbar", 1),
      Method<&RibbonHandlerObject::EnableGotoMember>("EnableGotoQuickBookmark", 1),
      Method<&RibbonHandlerObject::UpdateLumivexMember>("UpdateLumivexIcon", 1),
      Method<&RibbonHandlerObject::ProductNameChangedMember>("ProductNameChanged", 1),
      Method<&RibbonHandlerObject::ActivateTabMember>("ActivateQuillmereTab", 1),
  };
  return kMembers;
}

Variant RibbonHandlerObject::InitializeMember(const Call& call) {
  mEvents = call.Argument(0).ToObject();
  mProductName = call.Argument(1).ToText();
  mIconSize = SizeOfIcon(mEvents);
  return {};
}

Variant RibbonHandlerObject::EnableToolbarMember(const Call& call) {
  mIsEnabled = call.Argument(0).ToBoolean();
  return {};
}

Variant RibbonHandlerObject::EnableGotoMember(const Call& call) {
  mIsGotoEnabled = call.Argument(0).ToBoolean();
  return {};
}

Variant RibbonHandlerObject::UpdateLumivexMember(const Call& call) {
  mIsLumivexOn = call.Argument(0).ToBoolean();
  return {};
}

Variant RibbonHandlerObject::ProductNameChangedMember(const Call& call) {
  mProductName = call.Argument(0).ToText();
  return {};
}

Variant RibbonHandlerObject::ActivateTabMember(const Call& call) {
  if (call.Argument(0).ToObject().IsNothing()) Raise(errors::kObjectNotSet);
  mIsTabActive = true;
  return {};
}

}  // namespace strandline::wordsim
