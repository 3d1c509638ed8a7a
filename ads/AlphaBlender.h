#pragma once

// Keeps every picture that a fade has needed, so that each step between two ads is blended once and from then on only
// copied. All windows share it, and it lives as long as the ads of which it was made; nothing is dropped before, since
// a fade comes round every few seconds and a blend is what costs. In a rotation of n ads that is 10 n pictures.
//
// Both operations hand their arguments on to the product's component, which may write to them: the caller sees that.

#include <unordered_map>

#include "foundation/class_object.h"
#include "platform/dictionary.h"

namespace strandline {

class AlphaBlender final : public ClassObject {
 public:
  // The common size of the ads, pixels.
  void Initialize(Integer& width, Integer& height);
  // Puts the blend on targetHdc: percentage 0 is the previous ad, 1 the current one. What fails here raises out of the
  // operation, and leaves nothing behind: a fade gives such a step up in silence, and only who blends on an order of
  // its own has a tail to tell of it.
  void AlphaBlend(Long& targetHdc, Integer& previousIndex, Integer& currentIndex, Single& percentage);

  void ReportVariables(Reporter& to) const override;

 private:
  friend struct AdsAccess;  // the tests' way to the operations below

  // The surface of a blend, 0 before its first use.
  Long cache(Integer previousIndex, Integer currentIndex, Single percentage);
  void cache(Integer previousIndex, Integer currentIndex, Single percentage, Long blendHdc);
  String hash(Integer previousIndex, Integer currentIndex, Single percentage);
  void Terminated() override;

  Object mAlphaBlender;  // the product's component
  Integer mWidth = 0;
  Integer mHeight = 0;
  Ref<Dictionary> mCache;       // by blend key, the context that holds the blend
  Ref<Dictionary> mOldHandles;  // by the context's decimal text, the bitmap that the blend's own displaced

  // The keys that hash has written, by its arguments: a step that comes round again takes no memory.
  std::unordered_map<std::uint64_t, String> mKeys;
};

}  // namespace strandline
