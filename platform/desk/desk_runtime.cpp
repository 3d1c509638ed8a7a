#include "platform/desk/desk_runtime.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "platform/clipboard.h"
#include "platform/desk/date_text.h"
#include "platform/desk/desk_clipboard_text.h"
#include "platform/property_bag.h"

namespace strandline::desk {

namespace {

constexpr std::int64_t kSecondsOfADay = 86'400;
constexpr Double kTwipsOfAnInch = 1440;

// The identities of the report's objects, apart from all others.
constexpr Long kApplicationIdentity = 0x7E000001;
constexpr Long kScreenIdentity = 0x7E000002;
constexpr Long kFirstErrorIdentity = 0x7F000000;

constexpr Long kButtonsOfStyle = 0xF;
constexpr Long kYesNo = 4;

Long DefaultAnswer(Long style) {
  const Long buttons = style & kButtonsOfStyle;
  return buttons == msgbox::kYesNoCancel || buttons == kYesNo ? msgbox::kAnswerYes : msgbox::kAnswerOk;
}

// A date before the beginning counts its days downwards, but the time of day upwards still.
Date DateOf(std::int64_t seconds) {
  const std::int64_t days = (seconds >= 0 ? seconds : seconds - kSecondsOfADay + 1) / kSecondsOfADay;
  const Double time = static_cast<Double>(seconds - days * kSecondsOfADay) / kSecondsOfADay;
  return {days >= 0 ? static_cast<Double>(days) + time : static_cast<Double>(days) - time};
}

std::int64_t SecondsOf(Date date) {
  const Double days = std::trunc(date.days);
  const Double time = std::abs(date.days - days);
  return static_cast<std::int64_t>(days) * kSecondsOfADay + std::llround(time * kSecondsOfADay);
}

}  // namespace

Date MakeDate(int year, int month, int day, int hour, int minute, int second) {
  using namespace std::chrono;
  const sys_days beginning{std::chrono::year{1899} / 12 / 30};
  const sys_days date{std::chrono::year{year} / month / day};
  return DateOf((date - beginning).count() * kSecondsOfADay + (hour * 60 + minute) * 60 + second);
}

void DeskRunTime::SetSetting(const String& section, const String& key, const String& value) {
  mSettings[{LowerCase(section), LowerCase(key)}] = value;
}

String DeskRunTime::GetSetting(const String& section, const String& key, const String& defaultValue) {
  const auto found = mSettings.find({LowerCase(section), LowerCase(key)});
  return found == mSettings.end() ? defaultValue : found->second;
}

// Whole seconds, as the system's clock is read.
Date DeskRunTime::Now() { return DateOf(SecondsOf(mStart) + mClock.Milliseconds() / 1000); }

Date DeskRunTime::DateFromText(const String& text) {
  const std::optional<Date> date = DateInText(text);
  if (!date) Raise(errors::kTypeMismatch);
  return *date;
}

String DeskRunTime::TextFromDate(Date date) { return TextOfDate(date); }

Long DeskRunTime::MsgBox(const String& text, Long style, const String* title) {
  mWindows.DoEvents();
  return mBoxHandler ? mBoxHandler(text, style, title) : DefaultAnswer(style);
}

void DeskRunTime::SetScreen(Long width, Long height) {
  if (width <= 0 || height <= 0) return;
  mWidth = width;
  mHeight = height;
}

void DeskRunTime::SetDpi(Long dpi) {
  if (dpi > 0) mDpi = dpi;
}

Double DeskRunTime::TwipsPerPixelX() { return kTwipsOfAnInch / mDpi; }

// The clipboard's plain text is in the same set, but ends with a NUL.
String DeskRunTime::TextFromBytes(const Array<Byte>& bytes) {
  std::u16string text;
  for (std::span<const Byte> rest = bytes.Elements(); !rest.empty();) {
    const auto end = static_cast<std::size_t>(std::ranges::find(rest, Byte{0}) - rest.begin());
    text += DecodeText(clipboardformat::kText, rest.first(end));
    if (end == rest.size()) break;
    text += u'\0';
    rest = rest.subspan(end + 1);
  }
  return text;
}

Array<Byte> DeskRunTime::BytesFromText(const String& text) {
  const std::vector<Byte> ended = EncodeText(clipboardformat::kText, text);
  Array<Byte> bytes(0, static_cast<Long>(ended.size()) - 2);
  std::copy(ended.begin(), ended.end() - 1, bytes.Data());
  return bytes;
}

Object DeskRunTime::ApplicationObject() {
  if (mApplication.IsNothing()) {
    mApplication = New<PropertyBag>(kApplicationIdentity, std::vector<PropertyBag::Member>{{"Title", u"Strandline"},
                                                                                           {"EXEName", u"strandline"},
                                                                                           {"Path", mPath},
                                                                                           {"Major", Integer{1}},
                                                                                           {"Minor", Integer{0}},
                                                                                           {"Revision", Integer{0}}});
  }
  return mApplication;
}

Object DeskRunTime::ErrorObject(const Error& error) {
  return New<PropertyBag>(kFirstErrorIdentity + ++mErrorObjects,
                          std::vector<PropertyBag::Member>{
                              {"Number", error.number}, {"Description", error.description}, {"Source", error.source}});
}

Object DeskRunTime::ScreenObject() {
  const Double twips = TwipsPerPixelX();
  return New<PropertyBag>(kScreenIdentity,
                          std::vector<PropertyBag::Member>{{"Width", static_cast<Single>(mWidth * twips)},
                                                           {"Height", static_cast<Single>(mHeight * twips)},
                                                           {"TwipsPerPixelX", static_cast<Single>(twips)},
                                                           {"TwipsPerPixelY", static_cast<Single>(twips)}});
}

}  // namespace strandline::desk
