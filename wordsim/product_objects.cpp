#include "wordsim/product_objects.h"

#include "wordsim/own_picture.h"
#include "wordsim/tooltip_window.h"

namespace strandline::wordsim {

namespace {

constexpr Long kIconImage = 202;

const String& WebsiteAddress() {
  static const String kAddress = u"http://www.quillmere.example/";
  return kAddress;
}
const String& DownloadUrl() {
  static const String kAddress = u"http://www.quillmere.example/toolbar/";
  return kAddress;
}

bool Flag(const Call& call, Name name) {
  const Variant& given = call.ByName(name);
  return !given.IsMissing() && given.ToBoolean();
}

}  // namespace

MemberTable TooltipObject::Members() const {
  static constexpr Member kMembers[] = {
      Method<&TooltipObject::BackgroundMember>("TooltipBackground", 1),
      Method<&TooltipObject::ShowMember>("Show", 2, 2, true),
      Method<&TooltipObject::HideMember>("Hide", 0, 0, true),
      Writable<&TooltipObject::IconIndexMember>("TooltipIconIndex"),
  };
  return kMembers;
}

Variant TooltipObject::ShowMember(const Call& call) {
  mOwner = call.Argument(0).ToLong();
  mText = call.Argument(1).ToText();
  mWasForced = Flag(call, "forceRedraw");
  mHasBackground = Flag(call, "addBackground");
  mIsShown = true;
  if (mWindow) mWindow->Show(mText);
  return {};
}

Variant TooltipObject::HideMember(const Call& call) {
  mWasForced = Flag(call, "forceHide");
  mIsShown = false;
  if (mWindow) mWindow->Hide();
  return {};
}

Variant TooltipObject::IconIndexMember(const Call& call) {
  if (!call.IsLet()) return mIconIndex;
  mIconIndex = call.Value().ToLong();
  return {};
}

// The window shows a text as it comes; nothing is added to it.
Variant TooltipObject::BackgroundMember(const Call& call) { return call.Argument(0).ToText(); }

ProductStateObject::ProductStateObject(Ref<ObjectUses> uses, const Platform& platform, const Settings& settings)
    : SimObject(std::move(uses)),
      mPlatform(platform),
      mProductName(settings.productName),
      mIsLumivexEnabled(settings.lumivexEnabled),
      mHasIcon(settings.hasIcon) {}

MemberTable ProductStateObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&ProductStateObject::ProductNameMember>("productName"),
      Writable<&ProductStateObject::LumivexEnabledMember>("lumivexEnabled"),
      Readable<&ProductStateObject::IconMember>("icon"),
      Readable<&ProductStateObject::WebsiteAddressMember>("WebsiteAddress", 0, 2),
      Readable<&ProductStateObject::DownloadUrlMember>("toolbarDownloadURL"),
  };
  return kMembers;
}

Variant ProductStateObject::ProductNameMember(const Call&) { return mProductName; }

Variant ProductStateObject::LumivexEnabledMember(const Call& call) {
  if (!call.IsLet()) return mIsLumivexEnabled;
  mIsLumivexEnabled = call.Value().ToBoolean();
  return {};
}

// A new picture at each reading: who transfers one to a button uses its bitmap up.
Variant ProductStateObject::IconMember(const Call&) {
  Picture icon;
  if (mHasIcon) icon = LoadOwnPicture(mPlatform, kIconImage);
  return icon ? Variant(std::move(icon)) : Variant(Object());
}

Variant ProductStateObject::WebsiteAddressMember(const Call&) { return WebsiteAddress(); }
Variant ProductStateObject::DownloadUrlMember(const Call&) { return DownloadUrl(); }

}  // namespace strandline::wordsim
