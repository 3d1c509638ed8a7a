#include "ads/AlphaBlender.h"

#include <bit>

#include "ads/Advertisement.h"
#include "ads/ad_factory.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"AlphaBlender", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr TextView kBetween = u"\b";

std::uint64_t Packed(Integer previousIndex, Integer currentIndex, Single percentage) {
  return std::uint64_t{static_cast<std::uint16_t>(previousIndex)} << 48 |
         std::uint64_t{static_cast<std::uint16_t>(currentIndex)} << 32 | std::bit_cast<std::uint32_t>(percentage);
}

// As text: a dictionary may compare numbers as floats, and take the handles of two contexts for one.
String KeyOf(Long hdc) { return DecimalText(hdc); }

void FreeContext(Long hdc, Long oldHandle) {
  Graphics& graphics = platform::Graphics();
  graphics.DeleteObject(graphics.SelectObject(hdc, oldHandle));
  graphics.DeleteDC(hdc);
}

}  // namespace

void AlphaBlender::Initialize(Integer& width, Integer& height) {
  METHOD(void, u"Initialize", width, height);
  mWidth = width;
  mHeight = height;
  mCache = CommonPropertyFunctions::Dictionary();
  mOldHandles = CommonPropertyFunctions::Dictionary();
  STEP(mAlphaBlender = platform::Components().CreateObject(u"AlphaBlender.Main2"));
  STEP(mAlphaBlender.Call("Create", Variant::ByRef(width), Variant::ByRef(height)));
}

// A blend that can't be made is let go of, or a component that always fails would cost two handles at each step.
// odd: blends-stay
void AlphaBlender::AlphaBlend(Long& targetHdc, Integer& previousIndex, Integer& currentIndex, Single& percentage) {
  METHOD(void, u"AlphaBlend", targetHdc, previousIndex, currentIndex, percentage);
  Graphics& graphics = platform::Graphics();
  Long blendHdc = cache(previousIndex, currentIndex, percentage);
  if (blendHdc == 0) {
    blendHdc = graphics.CreateCompatibleDC(targetHdc);
    const Long made = blendHdc;  // the component may put another context in its place
    const Long oldHandle = graphics.SelectObject(blendHdc, graphics.CreateCompatibleBitmap(targetHdc, mWidth, mHeight));
    try {
      Required(mOldHandles).Add(KeyOf(blendHdc), oldHandle);
      const Long previousHdc = Required(AdFactory().Advertisement(previousIndex)).hdc();
      const Long currentHdc = Required(AdFactory().Advertisement(currentIndex)).hdc();
      mAlphaBlender.Call("AlphaBlend", Variant::ByRef(blendHdc), Integer{0}, Integer{0}, previousHdc, currentHdc,
                         Variant::ByRef(percentage));
    } catch (...) {
      if (mOldHandles && mOldHandles->Exists(KeyOf(made))) mOldHandles->Remove(KeyOf(made));
      FreeContext(made, oldHandle);
      throw;
    }
    cache(previousIndex, currentIndex, percentage, blendHdc);
  }
  graphics.BitBlt(targetHdc, 0, 0, mWidth, mHeight, blendHdc, 0, 0, rop::kSrcCopy);
}

Long AlphaBlender::cache(Integer previousIndex, Integer currentIndex, Single percentage) {
  METHOD(Long, u"cache[Get]", previousIndex, currentIndex, percentage);
  String key;
  REPORTS(key);
  key = hash(previousIndex, currentIndex, percentage);
  CONDITION(isKept, Required(mCache).Exists(key));
  if (isKept) STEP(here.result = Required(mCache).Item(key).ToLong());
  return here.Leave();
}

void AlphaBlender::cache(Integer previousIndex, Integer currentIndex, Single percentage, Long blendHdc) {
  METHOD(void, u"cache[Let]", previousIndex, currentIndex, percentage, blendHdc);
  STEP(Required(mCache).Add(hash(previousIndex, currentIndex, percentage), blendHdc));
}

String AlphaBlender::hash(Integer previousIndex, Integer currentIndex, Single percentage) {
  METHOD(String, u"hash", previousIndex, currentIndex, percentage);
  STEP(String& key = mKeys[Packed(previousIndex, currentIndex, percentage)];
       if (key.IsEmpty()) key = Concat(
           {DecimalText(previousIndex), kBetween, DecimalText(currentIndex), kBetween, TextFromSingle(percentage)});
       here.result = key);
  return here.Leave();
}

void AlphaBlender::Terminated() {
  METHOD(void, u"Class_Terminate");
  Long count = 0;
  Long i = 0;
  Long handle = 0;
  REPORTS(count, i, handle);
  STEP(count = Required(mCache).Count());
  for (i = 0; i < count; ++i) {
    STEP(handle = Required(mCache).ItemAt(i).ToLong());
    STEP(FreeContext(handle, Required(mOldHandles).Item(KeyOf(handle)).ToLong()));
    STEP(Required(mOldHandles).Remove(KeyOf(handle)));
  }
  // What is left are blends that the cache couldn't take.
  STEP(count = Required(mOldHandles).Count());
  for (i = 0; i < count; ++i) {
    STEP(handle = Required(mOldHandles).KeyAt(i).ToLong());
    STEP(FreeContext(handle, Required(mOldHandles).ItemAt(i).ToLong()));
  }
  Log(u"Alphablender terminated");
}

void AlphaBlender::ReportVariables(Reporter& to) const {
  to.List("mAlphaBlender, mWidth, mHeight, mCache, mOldHandles", mAlphaBlender, mWidth, mHeight, Object(mCache),
          Object(mOldHandles));
}

}  // namespace strandline
