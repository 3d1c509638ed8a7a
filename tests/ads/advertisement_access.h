#pragma once

// Advertisement's own operations, for tests.

#include "ads/Advertisement.h"

namespace strandline {

struct AdvertisementAccess {
  static Boolean InRepeatTiming(Advertisement& ad, Date start, Date end, const String& rule, Date current) {
    return ad.InRepeatTiming(start, end, rule, current);
  }
  static Boolean InRepeatDaily(Advertisement& ad, const String& body, Date start, Date current) {
    return ad.InRepeatDaily(body, start, current);
  }
  static Boolean InRepeatWeekly(Advertisement& ad, const String& body, Date start, Date current) {
    return ad.InRepeatWeekly(body, start, current);
  }
  static Boolean InRepeatMonthly(Advertisement& ad, const String& body, Date start, Date current) {
    return ad.InRepeatMonthly(body, start, current);
  }
  static Boolean InRepeatYearly(Advertisement& ad, const String& body, Date current) {
    return ad.InRepeatYearly(body, current);
  }
  static Boolean InRepeatEveryOther(Advertisement& ad, const String& body, Date start, Integer range, Date current) {
    return ad.InRepeatEveryOther(body, start, range, current);
  }
  static Integer NumberOfDaysInMonth(Advertisement& ad, Integer year, Integer month) {
    return ad.NumberOfDaysInMonth(year, month);
  }
  static Boolean InFilterToken(Advertisement& ad, const String& compare, const String& tokens) {
    return ad.InFilterToken(compare, tokens);
  }
  static String addEmailParameterToWebsite(Advertisement& ad, String& website) {
    return ad.addEmailParameterToWebsite(website);
  }
  static void SetFilter(Advertisement& ad, const String& filter) { ad.mFilter = filter; }
  static const String& Website(const Advertisement& ad) { return ad.mWebsite; }
  static const String& Filter(const Advertisement& ad) { return ad.mFilter; }
  static const Picture& Pic(const Advertisement& ad) { return ad.mPic; }
};

}  // namespace strandline
