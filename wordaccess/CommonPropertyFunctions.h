#pragma once

// The product's settings as the library reads them: the product's store and what is forwarded to it, named values on
// three levels (the document, the user, the product), and the citation style and reference kind of the active document,
// which the formatter components tell. Everything persistent lives in the store or in the document; the library only
// reads document values.

#include "foundation/procedure.h"
#include "platform/dictionary.h"

namespace strandline::CommonPropertyFunctions {

struct Variables {
  Array<String> mFormatDisplayNames;  // sorted ascending after discovery
  String mCurrentFormatter;           // cleared by ReInitialize, set by nobody
  // Nothing until the formatters have been discovered. All three by display name.
  Ref<::strandline::Dictionary> mDisplayToClassNames;
  Ref<::strandline::Dictionary> mFormatMetaData;
  Ref<::strandline::Dictionary> mFormatters;
  Object mProperties;
  // The values that "OutputType" may have; made on first need.
  Ref<::strandline::Dictionary> outputMap;
};
inline Variables variables;

void properties(const Object& theProperties);
Object properties();
void Terminate();

String InstallPath();    // with a separator at its end
String CommonAppPath();  // with a separator at its end
Object tooltip();
// `param` may be left out.
Variant ExecuteQLMCommand(const String& command, const Variant& param = Missing{});

// The active document's value, else the user's, else the product's; empty where none has one.
String PropertyValue(const String& key);
// Where Document is Nothing it becomes the active document. Empty without a document.
String DocumentValue(const String& key, Object& Document);
// The decimal text of the document object's identity, good for its life in this process; empty for Nothing.
String docId(const Object& Document);
Ref<::strandline::Dictionary> Dictionary();

// "citation", "footnote", "endnote" or "numbered reference".
String outputType();
// The display name of a formatter.
String formatType();
// An empty displayName becomes formatType.
Object formatMetaData(String& displayName);
String defaultOutputType(String formatType);

void ReInitialize();
Ref<::strandline::Dictionary> InitializeMapWithPossibleValues(const String& values);
void InitializeDocumentValueMap(const Object& Document, const String& docId);
void initializeDisplayToClassNames();
void getFormatterClassNames(Array<String>& files);

void ReportModule(Reporter& to);
inline constexpr ModuleInfo kModuleInfo{u"CommonPropertyFunctions", &ReportModule};

}  // namespace strandline::CommonPropertyFunctions
