#pragma once

// One advertisement: a picture, when and to whom it may show, how long it stays, and the web address that a click
// opens. The factory makes one for each picture of the ad library; the panels of all windows share it, so nothing of
// one window lives here.
//
// The picture is composed once on the strip's background and lives on in a memory context only. Its dates and its rule
// are tested once, when it is loaded; its filter is tested whenever somebody asks.

#include "foundation/class_object.h"

namespace strandline {

class Advertisement final : public ClassObject {
 public:
  // settings: seven fields joined by "$" - start, end, rule, one that is kept free, filter, duration, address - as they
  // come from the library, with the NUL that ends them; blanks behind that are taken off in place. Text without a "$",
  // and the heading of a table of settings, make an ad of the product's own page, always and for all. False: the ad
  // doesn't show on currentDate, and is of no further use.
  Boolean Initialize(const Picture& image, String& settings, Date currentDate);
  // Cuts the background out of srcHdc (pixels) and puts the picture in its middle. The picture's bitmap is used up.
  void InitBackBuffer(Long srcHdc, Integer left, Integer top, Integer width, Integer height);
  // From 0, one for each clause of the filter: the name of the value that it asks for. Sized and empty without a
  // filter.
  Array<String> listenKeys();
  Long width();   // pixels, of the picture
  Long height();  // pixels, of the picture
  // Whether the filter lets it show to the active document.
  Boolean visible();
  // The context of the finished ad, the object's own; 0 before InitBackBuffer.
  Long hdc();
  Long Duration();  // milliseconds
  void ClickOnAd();

  void ReportVariables(Reporter& to) const override;

 private:
  friend struct AdvertisementAccess;  // the tests' way to the operations below

  void Terminated() override;
  void CopyDC(Long& destHdc, Long srcHdc, Integer left, Integer top, Integer width, Integer height);
  void DeleteMyDC();
  Boolean InitializeBasedOnSettings(String& settings, Date currentDate);
  // Raises 13; the procedure that asks has the error.
  Date convertDate(const String& dateStr);
  // A NUL at the website's end is taken off in place.
  String addEmailParameterToWebsite(String& website);
  String getEmail();

  // --- the schedule ---

  // Both ends belong to the range. Days are compared: the time of a date counts for nothing.
  Boolean InRepeatTiming(Date startDate, Date endDate, const String& repeatStr, Date currentDate);
  Boolean InRepeatDaily(const String& body, Date startDate, Date currentDate);
  Boolean InRepeatWeekly(const String& body, Date startDate, Date currentDate);
  Boolean InRepeatMonthly(const String& body, Date startDate, Date currentDate);
  Boolean InRepeatYearly(const String& body, Date currentDate);
  Boolean InRepeatEveryOther(const String& body, Date startDate, Integer dayRange, Date currentDate);
  Integer NumberOfDaysInMonth(Integer workingYear, Integer workingMonth);

  // --- the filter ---

  // Whether any of the tokens, joined by "|", fits the value.
  Boolean InFilterToken(const String& compare, const String& tokens);

  Long mHdc = 0;        // background and picture; 0 until InitBackBuffer
  Long mOldHandle = 0;  // the bitmap that mHdc's own displaced
  Picture mPic;         // its bitmap is gone after InitBackBuffer
  String mFilter;       // empty: for all
  Long mDuration = 0;   // milliseconds until the next fade begins
  String mWebsite;      // with the user's e-mail address in it
  Integer mWidth = 0;   // pixels
  Integer mHeight = 0;
};

}  // namespace strandline
