#pragma once

// The product's tooltip and its state object.

#include <string>

#include "platform/platform.h"
#include "wordsim/settings.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class TooltipWindow;

// Remembers what it was last asked to show, and shows it where it has been given a window.
class TooltipObject final : public SimObject {
 public:
  explicit TooltipObject(Ref<ObjectUses> uses) : SimObject(std::move(uses)) {}
  bool IsShown() const { return mIsShown; }
  const String& Text() const { return mText; }
  Long Owner() const { return mOwner; }  // the document window that it belongs to
  Long IconIndex() const { return mIconIndex; }
  // What was asked for by name; False where it wasn't.
  bool WasForced() const { return mWasForced; }
  bool HasBackground() const { return mHasBackground; }
  // The window outlives its use; null: none.
  void ShowIn(TooltipWindow* window) { mWindow = window; }

 protected:
  std::string ObjectName() const override { return "tooltip"; }
  MemberTable Members() const override;

 private:
  Variant ShowMember(const Call& call);
  Variant HideMember(const Call& call);
  Variant IconIndexMember(const Call& call);
  Variant BackgroundMember(const Call& call);

  bool mIsShown = false;
  Long mOwner = 0;
  String mText;
  Long mIconIndex = 0;
  bool mWasForced = false;
  bool mHasBackground = false;
  TooltipWindow* mWindow = nullptr;
};

class ProductStateObject final : public SimObject {
 public:
  ProductStateObject(Ref<ObjectUses> uses, const Platform& platform, const Settings& settings);
  void Rename(const String& name) { mProductName = name; }
  void SetLumivex(bool enabled) { mIsLumivexEnabled = enabled; }
  bool IsLumivexEnabled() const { return mIsLumivexEnabled; }

 protected:
  std::string ObjectName() const override { return "productState"; }
  MemberTable Members() const override;

 private:
  Variant ProductNameMember(const Call& call);
  Variant LumivexEnabledMember(const Call& call);
  Variant IconMember(const Call& call);
  Variant WebsiteAddressMember(const Call& call);
  Variant DownloadUrlMember(const Call& call);

  const Platform& mPlatform;
  String mProductName;
  bool mIsLumivexEnabled;
  bool mHasIcon;
};

}  // namespace strandline::wordsim
