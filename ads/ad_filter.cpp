// To whom an ad shows. The filter is clauses joined by "~", of which all must hold; a clause is the name of a value,
// "=" and tokens joined by "|", of which one must fit.

#include "ads/Advertisement.h"
#include "ads/pieces.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Advertisement", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 2000};

constexpr TextView kContains = u"has_";

TextView NameIn(TextView clause) { return clause.substr(0, clause.find(u'=')); }

// Without the sign there are none, not even the empty list.
TextView TokensIn(TextView clause) {
  const std::size_t sign = clause.find(u'=');
  if (sign == TextView::npos) Raise(errors::kSubscriptOutOfRange);
  return clause.substr(sign + 1);
}

// A value that begins like a token with a sign of its own is met by its very text, before the sign is looked at.
bool Fits(TextView value, TextView token) {
  if (value == token) return true;
  if (token.starts_with(u'!')) return value != token.substr(1);
  if (!token.starts_with(kContains)) return false;
  const TextView sought = token.substr(kContains.size());
  return sought.empty() || FindText(value, sought) != 0;
}

}  // namespace

Array<String> Advertisement::listenKeys() {
  METHOD(Array<String>, u"listenKeys[Get]");
  Long last = -1;
  Long i = 0;
  REPORTS(last, i);
  STEP(here.result = Split(mFilter, u'~'));
  STEP(last = here.result.Upper());
  for (i = 0; i <= last; ++i) STEP(here.result(i) = String(NameIn(here.result(i))));
  return here.Leave();
}

Boolean Advertisement::visible() {
  METHOD(Boolean, u"visible[Get]");
  String filter;
  String clause;
  String name;
  String compare;
  REPORTS(filter, clause, name, compare);
  if (mFilter.IsEmpty()) return here.result = true;
  filter = mFilter;  // reading a value lets the product act, which may load the ads anew
  Pieces clauses(filter, u'~');
  for (TextView next; clauses.Next(next);) {
    if (next.empty()) continue;
    STEP(clause = next);
    STEP(name = String(NameIn(clause)));
    compare = CommonPropertyFunctions::PropertyValue(name);
    CONDITION(isHidden, !InFilterToken(compare, TokensIn(clause)));
    if (isHidden) return here.Leave();
  }
  return here.result = true;
}

Boolean Advertisement::InFilterToken(const String& compare, const String& tokens) {
  METHOD(Boolean, u"InFilterToken", compare, tokens);
  if (tokens.IsEmpty()) return here.result = compare.IsEmpty();
  Pieces pieces(tokens, u'|');
  for (TextView token; pieces.Next(token);) {
    if (Fits(compare, token)) return here.result = true;
  }
  return here.Leave();
}

}  // namespace strandline
