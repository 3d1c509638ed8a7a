#pragma once

// The product's components around the ads: one mixes pictures, one opens addresses, one fetches ad libraries and makes
// the object that verifies them.

#include "platform/host.h"
#include "wordsim/components.h"

namespace strandline::wordsim {

inline constexpr const char16_t* kBlenderComponent = u"AlphaBlender.Main2";
inline constexpr const char16_t* kBrowserComponent = u"HTTP.Main2";
inline constexpr const char16_t* kDownloadComponent = u"StrandlineDownload.Main2";

// Mixes on the host's canvas. A mix needs a size first.
class BlenderObject final : public ComponentObject {
 public:
  // The canvas outlives the world.
  BlenderObject(Ref<ObjectUses> uses, HostCanvas& canvas)
      : ComponentObject(std::move(uses), kBlenderComponent), mCanvas(canvas) {}

 protected:
  MemberTable Members() const override;

 private:
  Variant CreateMember(const Call& call);
  Variant AlphaBlendMember(const Call& call);

  HostCanvas& mCanvas;
  Long mWidth = 0;  // pixels
  Long mHeight = 0;
};

// Opens nothing: the product remembers the addresses.
class BrowserObject final : public ComponentObject {
 public:
  BrowserObject(Ref<ObjectUses> uses, Product& product)
      : ComponentObject(std::move(uses), kBrowserComponent), mProduct(product) {}

 protected:
  MemberTable Members() const override;

 private:
  Variant BrowseMember(const Call& call);
  Product& mProduct;
};

// There is no network: what is asked for never comes, until somebody plays the news.
class DownloadObject final : public ComponentObject {
 public:
  DownloadObject(Ref<ObjectUses> uses, Product& product)
      : ComponentObject(std::move(uses), kDownloadComponent), mProduct(product) {}

 protected:
  MemberTable Members() const override;

 private:
  Variant CheckMember(const Call& call);
  Variant CreateVerifierMember(const Call& call);
  Product& mProduct;
};

class VerifierObject final : public SimObject {
 public:
  VerifierObject(Ref<ObjectUses> uses, Product& product) : SimObject(std::move(uses)), mProduct(product) {}

 protected:
  std::string ObjectName() const override { return "verifier"; }
  MemberTable Members() const override;

 private:
  Variant VerifyMember(const Call& call);
  Product& mProduct;
};

}  // namespace strandline::wordsim
