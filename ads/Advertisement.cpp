// What an ad is made of, and its finished picture.

#include "ads/Advertisement.h"

#include "ads/pieces.h"
#include "drawing/ToolbarUtilities.h"
#include "drawing/units.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Advertisement", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr TextView kHeading = u"StartDate";
constexpr Long kStartField = 0;
constexpr Long kEndField = 1;
constexpr Long kRuleField = 2;
constexpr Long kFilterField = 4;  // the one before it is free
constexpr Long kDurationField = 5;
constexpr Long kWebsiteField = 6;
constexpr Long kUsualDuration = 5000;  // milliseconds

TextView WithoutTrailing(TextView text, char16_t c) {
  while (!text.empty() && text.back() == c) text.remove_suffix(1);
  return text;
}

bool IsDefaultForm(const Array<String>& fields) { return fields.Upper() == 0 || fields(0) == kHeading; }

// From 1; 0 when it isn't there.
Long PositionOf(TextView text, char16_t c) { return static_cast<Long>(text.find(c) + 1); }

}  // namespace

Boolean Advertisement::Initialize(const Picture& image, String& settings, Date currentDate) {
  METHOD(Boolean, u"Initialize", image, settings, currentDate);
  if (!InitializeBasedOnSettings(settings, currentDate)) return here.Leave();
  here.result = true;
  mPic = image;
  STEP(mWidth = ToInteger(ToolbarUtilities::HM2PixX(Required(image).Width())));
  STEP(mHeight = ToInteger(ToolbarUtilities::HM2PixY(Required(image).Height())));
  return here.Leave();
}

void Advertisement::InitBackBuffer(Long srcHdc, Integer left, Integer top, Integer width, Integer height) {
  METHOD(void, u"InitBackBuffer", srcHdc, left, top, width, height);
  Graphics& graphics = platform::Graphics();
  Long picHdc = 0;
  Long oldHandle = 0;
  Integer x = 0;
  Integer y = 0;
  REPORTS(picHdc, oldHandle, x, y);
  DeleteMyDC();
  CopyDC(mHdc, srcHdc, left, top, width, height);
  picHdc = graphics.CreateCompatibleDC(srcHdc);
  STEP(oldHandle = graphics.SelectObject(picHdc, Required(mPic).Handle()));
  STEP(x = units::Half(ToInteger(width - mWidth)));
  STEP(y = units::Half(ToInteger(height - mHeight)));
  ToolbarUtilities::TransparentBlt(mHdc, x, y, mWidth, mHeight, picHdc, 0, 0);
  graphics.DeleteObject(graphics.SelectObject(picHdc, oldHandle));
  graphics.DeleteDC(picHdc);
}

// left and top may lie outside the source: what isn't there stays black.
void Advertisement::CopyDC(Long& destHdc, Long srcHdc, Integer left, Integer top, Integer width, Integer height) {
  METHOD(void, u"CopyDC", destHdc, srcHdc, left, top, width, height);
  Graphics& graphics = platform::Graphics();
  destHdc = graphics.CreateCompatibleDC(srcHdc);
  mOldHandle = graphics.SelectObject(destHdc, graphics.CreateCompatibleBitmap(srcHdc, width, height));
  graphics.BitBlt(destHdc, 0, 0, width, height, srcHdc, left, top, rop::kSrcCopy);
}

void Advertisement::DeleteMyDC() {
  METHOD(void, u"DeleteMyDC");
  if (mHdc == 0) return;
  Graphics& graphics = platform::Graphics();
  graphics.DeleteObject(graphics.SelectObject(mHdc, mOldHandle));
  graphics.DeleteDC(mHdc);
  mOldHandle = 0;
  mHdc = 0;
}

Boolean Advertisement::InitializeBasedOnSettings(String& settings, Date currentDate) {
  METHOD(Boolean, u"InitializeBasedOnSettings", settings, currentDate);
  Array<String> fields;
  Date startDate;
  Date endDate;
  REPORTS(fields, startDate, endDate);
  STEP(settings = String(WithoutTrailing(settings, u' ')));
  if (settings.IsEmpty()) return here.Leave();
  STEP(fields = Split(settings, u'$'));
  CONDITION(isDefault, IsDefaultForm(fields));
  if (isDefault) {
    mDuration = kUsualDuration;
    STEP(mWebsite = ToolbarUtilities::variables.productState.Get("WebsiteAddress", false, u"").ToText());
    here.result = true;
  } else {
    STEP(startDate = convertDate(fields(kStartField)));
    STEP(endDate = convertDate(fields(kEndField)));
    CONDITION(isOut, !InRepeatTiming(startDate, endDate, fields(kRuleField), currentDate));
    if (isOut) return here.Leave();
    here.result = true;
    STEP(mFilter = fields(kFilterField));
    STEP(mDuration = RoundToLong(NumberFromText(fields(kDurationField))));
    STEP(mWebsite = fields(kWebsiteField));
  }
  mWebsite = addEmailParameterToWebsite(mWebsite);
  return here.Leave();
}

// It has no tail: text that is no date is an error of the settings in which it stands.
Date Advertisement::convertDate(const String& dateStr) {
  METHOD(Date, u"convertDate", dateStr);
  return here.result = platform::RunTime().DateFromText(dateStr);
}

// The parameter comes first in the query, and in front of a fragment.
String Advertisement::addEmailParameterToWebsite(String& website) {
  METHOD(String, u"addEmailParameterToWebsite", website);
  constexpr TextView kParameter = u"emailAddress=";
  Long questionIndex = 0;
  Long hashIndex = 0;
  REPORTS(questionIndex, hashIndex);
  STEP(website = String(WithoutTrailing(website, u'\0')));
  const String address = website;
  const TextView text = address;
  questionIndex = PositionOf(text, u'?');
  if (questionIndex != 0) {
    const auto behind = static_cast<std::size_t>(questionIndex);
    STEP(here.result = Concat({text.substr(0, behind), kParameter, getEmail(), u"&", text.substr(behind)}));
    return here.Leave();
  }
  hashIndex = PositionOf(text, u'#');
  if (hashIndex < 1) {
    STEP(here.result = Concat({text, u"?", kParameter, getEmail()}));
  } else {
    const auto before = static_cast<std::size_t>(hashIndex - 1);
    STEP(here.result = Concat({text.substr(0, before), u"?", kParameter, getEmail(), text.substr(before)}));
  }
  return here.Leave();
}

String Advertisement::getEmail() {
  METHOD(String, u"getEmail");
  STEP(here.result = CommonPropertyFunctions::properties().Get("GlobalValue", u"email").ToText());
  return here.Leave();
}

Long Advertisement::width() {
  METHOD(Long, u"width[Get]");
  return here.result = mWidth;
}

Long Advertisement::height() {
  METHOD(Long, u"height[Get]");
  return here.result = mHeight;
}

Long Advertisement::hdc() {
  METHOD(Long, u"hdc[Get]");
  return here.result = mHdc;
}

Long Advertisement::Duration() {
  METHOD(Long, u"Duration[Get]");
  return here.result = mDuration;
}

void Advertisement::ClickOnAd() {
  METHOD(void, u"ClickOnAd");
  Object browser;
  REPORTS(browser);
  STEP(browser = platform::Components().CreateObject(u"HTTP.Main2"));
  STEP(browser.Call("Browse", Variant::ByRef(mWebsite)));
}

void Advertisement::Terminated() {
  METHOD(void, u"Class_Terminate");
  DeleteMyDC();
  Log(u"Advertisement Terminated");
}

void Advertisement::ReportVariables(Reporter& to) const {
  to.List("mHdc, mOldHandle, mPic, mFilter, mDuration, mWebsite, mWidth, mHeight", mHdc, mOldHandle, mPic, mFilter,
          mDuration, mWebsite, mWidth, mHeight);
}

}  // namespace strandline
