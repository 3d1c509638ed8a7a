#include "wordsim/ad_components.h"

#include "wordsim/product.h"

namespace strandline::wordsim {

MemberTable BlenderObject::Members() const {
  static constexpr Member kMembers[] = {
      Method<&BlenderObject::CreateMember>("Create", 2),
      Method<&BlenderObject::AlphaBlendMember>("AlphaBlend", 6),
  };
  return kMembers;
}

Variant BlenderObject::CreateMember(const Call& call) {
  mWidth = call.Argument(0).ToLong();
  mHeight = call.Argument(1).ToLong();
  return {};
}

Variant BlenderObject::AlphaBlendMember(const Call& call) {
  if (mWidth <= 0 || mHeight <= 0) Raise(errors::kInvalidArgument);
  mCanvas.MixPictures(call.Argument(0).ToLong(), call.Argument(3).ToLong(), call.Argument(4).ToLong(), mWidth, mHeight,
                      static_cast<Single>(call.Argument(5).ToDouble()));
  return {};
}

MemberTable BrowserObject::Members() const {
  static constexpr Member kMembers[] = {Method<&BrowserObject::BrowseMember>("Browse", 1)};
  return kMembers;
}

Variant BrowserObject::BrowseMember(const Call& call) {
  mProduct.Browse(call.Argument(0).ToText());
  return {};
}

MemberTable DownloadObject::Members() const {
  static constexpr Member kMembers[] = {
      Method<&DownloadObject::CheckMember>("CheckForNewAdvertisements", 4),
      Method<&DownloadObject::CreateVerifierMember>("CreateDSAVerify"),
  };
  return kMembers;
}

Variant DownloadObject::CheckMember(const Call& call) {
  if (call.Argument(0).ToObject().IsNothing()) Raise(errors::kObjectNotSet);
  return {};
}

Variant DownloadObject::CreateVerifierMember(const Call&) {
  return Object(New<VerifierObject>(SharedUses(), mProduct));
}

MemberTable VerifierObject::Members() const {
  static constexpr Member kMembers[] = {Method<&VerifierObject::VerifyMember>("verifyDLL", 2)};
  return kMembers;
}

Variant VerifierObject::VerifyMember(const Call& call) {
  String signature;
  const Long highest = mProduct.Verify(call.Argument(0).ToText(), signature);
  if (call.Argument(1).IsByRef()) call.Argument(1).Assign(signature);
  return highest;
}

}  // namespace strandline::wordsim
