// The citation formatters: what they are called, what they declare, and what follows for the active document.

#include "foundation/LanguageExtensions.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline::CommonPropertyFunctions {

namespace {

constexpr ModuleFile kModule{&kModuleInfo, 1000};

const String kPossibleOutputTypes = u"citation,footnote,endnote,numbered reference";
const String kDefaultFormat = u"APA";
const String kOutputType = u"OutputType";
const String kFormatType = u"FormatType";
const String kDefaultOutputType = u"defaultOutputType";

}  // namespace

String outputType() {
  PROCEDURE(String, u"outputType");
  Object doc;
  String value;
  auto& outputMap = variables.outputMap;
  REPORTS(doc, value, outputMap);
  value = DocumentValue(kOutputType, doc);
  if (!value.IsEmpty()) {
    if (!outputMap) outputMap = InitializeMapWithPossibleValues(kPossibleOutputTypes);
    CONDITION(isPossible, Required(outputMap).Exists(value));
    if (isPossible) return here.result = value;
  }
  return here.result = defaultOutputType(formatType());
}

String formatType() {
  PROCEDURE(String, u"formatType");
  Object doc;
  String value;
  REPORTS(doc, value);
  initializeDisplayToClassNames();
  value = DocumentValue(kFormatType, doc);
  CONDITION(unset, value.IsEmpty() || !Required(variables.mFormatMetaData).Exists(value));
  if (unset) {
    STEP(value = variables.mProperties.Get("GlobalUserValueWithDefault", kFormatType, kDefaultFormat).ToText());
  }
  CONDITION(unknown, !Required(variables.mFormatMetaData).Exists(value));
  if (unknown) STEP(value = Required(variables.mFormatMetaData).KeyAt(0).ToText());
  return here.result = value;
}

Object formatMetaData(String& displayName) {
  PROCEDURE(Object, u"formatMetaData", displayName);
  initializeDisplayToClassNames();
  if (displayName.IsEmpty()) displayName = formatType();
  STEP(here.result = Required(variables.mFormatMetaData).Item(displayName).ToObject());
  return here.Leave();
}

String defaultOutputType(String formatType) {
  PROCEDURE(String, u"defaultOutputType", formatType);
  if (formatType.IsEmpty()) formatType = CommonPropertyFunctions::formatType();
  STEP(here.result = formatMetaData(formatType).Get("Item", kDefaultOutputType).ToText());
  return here.Leave();
}

Ref<::strandline::Dictionary> InitializeMapWithPossibleValues(const String& values) {
  PROCEDURE(Ref<::strandline::Dictionary>, u"InitializeMapWithPossibleValues", values);
  TextView rest = values;
  String value;
  REPORTS(value);
  here.result = Dictionary();
  for (bool last = false; !last;) {
    const std::size_t comma = rest.find(u',');
    last = comma == TextView::npos;
    STEP(value = String(rest.substr(0, comma)));
    STEP(Required(here.result).Add(value, Integer{0}));
    if (!last) rest.remove_prefix(comma + 1);
  }
  return here.Leave();
}

void initializeDisplayToClassNames() {
  PROCEDURE(void, u"initializeDisplayToClassNames");
  Array<String> classNames;
  Object formatter;
  Object metaData;
  String displayName;
  Integer upper = -1;
  Integer index = 0;
  REPORTS(classNames, formatter, metaData, displayName, upper, index);
  if (variables.mDisplayToClassNames) return;
  variables.mDisplayToClassNames = Dictionary();
  variables.mFormatMetaData = Dictionary();
  variables.mFormatters = Dictionary();
  getFormatterClassNames(classNames);
  STEP(variables.mFormatDisplayNames.Size(classNames.Lower(), classNames.Upper()));
  STEP(upper = ToInteger(classNames.Upper()));
  for (; index <= upper; ++index) {
    STEP(formatter = platform::Components().CreateObject(Concat({classNames(index), u".Main2"})));
    metaData = Dictionary();
    // The component may put a map of its own in the place of ours.
    STEP(displayName = formatter.Call("getMetaData", Variant::ByRef(metaData)).ToText());
    STEP(Required(variables.mDisplayToClassNames).Add(displayName, classNames(index)));
    STEP(Required(variables.mFormatMetaData).Add(displayName, metaData));
    STEP(Required(variables.mFormatters).Add(displayName, formatter));
    STEP(variables.mFormatDisplayNames(index) = displayName);
  }
  LanguageExtensions::QuickSortString(variables.mFormatDisplayNames, 0, upper);
}

void getFormatterClassNames(Array<String>& files) {
  PROCEDURE(void, u"getFormatterClassNames", files);
  STEP(files.Size(0, 3));
  STEP(files(0) = u"StylanthAMA");
  STEP(files(1) = u"StylanthAPA");
  STEP(files(2) = u"StylanthMLA");
  STEP(files(3) = u"StylanthTurabian");
}

// mFormatters stays, though emptied, and so do the display names: discovery replaces both whenever it runs.
// odd: maps-at-reinitialize
void ReInitialize() {
  PROCEDURE(void, u"ReInitialize");
  variables.mCurrentFormatter = String();
  if (variables.mDisplayToClassNames) {
    STEP(Required(variables.mDisplayToClassNames).RemoveAll());
    STEP(Required(variables.mFormatMetaData).RemoveAll());
    STEP(Required(variables.mFormatters).RemoveAll());
  }
  variables.mDisplayToClassNames = nullptr;
  variables.mFormatMetaData = nullptr;
}

}  // namespace strandline::CommonPropertyFunctions
