#include "wordaccess/CommonPropertyFunctions.h"

#include "platform/platform.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline::CommonPropertyFunctions {

namespace {
constexpr ModuleFile kModule{&kModuleInfo};
}

void properties(const Object& theProperties) {
  PROCEDURE(void, u"properties[Let]", theProperties);
  variables.mProperties = theProperties;
}

Object properties() {
  PROCEDURE(Object, u"properties[Get]");
  return here.result = variables.mProperties;
}

void Terminate() {
  PROCEDURE(void, u"Terminate");
  ReInitialize();
  variables.mProperties = nullptr;
}

String InstallPath() {
  PROCEDURE(String, u"InstallPath[Get]");
  STEP(here.result = variables.mProperties.Get("InstallPath").ToText());
  return here.Leave();
}

String CommonAppPath() {
  PROCEDURE(String, u"CommonAppPath[Get]");
  STEP(here.result = variables.mProperties.Get("CommonAppPath").ToText());
  return here.Leave();
}

Object tooltip() {
  PROCEDURE(Object, u"tooltip[Get]");
  STEP(here.result = variables.mProperties.Get("tooltip").ToObject());
  return here.Leave();
}

Variant ExecuteQLMCommand(const String& command, const Variant& param) {
  PROCEDURE(Variant, u"ExecuteQLMCommand", command, param);
  if (param.IsMissing()) {
    STEP(here.result = variables.mProperties.Call("ExecuteQLMCommand", command));
  } else {
    STEP(here.result = variables.mProperties.Call("ExecuteQLMCommand", command, param));
  }
  return here.Leave();
}

String PropertyValue(const String& key) {
  PROCEDURE(String, u"PropertyValue", key);
  Object doc;
  String value;
  REPORTS(doc, value);
  value = DocumentValue(key, doc);
  if (value.Length() >= 1) return here.result = value;
  STEP(value = variables.mProperties.Get("GlobalUserValue", key).ToText());
  if (value.Length() >= 1) return here.result = value;
  STEP(here.result = variables.mProperties.Get("GlobalValue", key).ToText());
  return here.Leave();
}

String DocumentValue(const String& key, Object& Document) {
  PROCEDURE(String, u"DocumentValue[Get]", key, Document);
  String id;
  REPORTS(id);
  CONDITION(noDocument, CommonWordInteractionFunctions::Documents().Get("Count").ToLong() == 0);
  if (noDocument) return here.Leave();
  if (Document.IsNothing()) Document = CommonWordInteractionFunctions::ActiveDocument();
  id = docId(Document);
  InitializeDocumentValueMap(Document, id);
  STEP(here.result = variables.mProperties.Get("DocumentValue", key, id).ToText());
  return here.Leave();
}

String docId(const Object& Document) {
  PROCEDURE(String, u"docId", Document);
  here.IgnoreErrors();
  if (Document.IsNothing()) return here.Leave();
  STEP(here.result = DecimalText(Document.Identity()));
  return here.Leave();
}

Ref<::strandline::Dictionary> Dictionary() {
  PROCEDURE(Ref<::strandline::Dictionary>, u"Dictionary");
  STEP(here.result = platform::Components().CreateDictionary());
  return here.Leave();
}

void InitializeDocumentValueMap(const Object& Document, const String& docId) {
  PROCEDURE(void, u"InitializeDocumentValueMap", Document, docId);
  Ref<::strandline::Dictionary> map;
  Object variable;
  Walk walk;
  REPORTS(map, variable);
  CONDITION(exists, variables.mProperties.Get("DocumentValueMapExists", docId).ToBoolean());
  if (exists) return;
  map = Dictionary();
  // Whatever can't be read costs its own step alone; a partly filled map is written as it stands.
  here.IgnoreErrors();
  CONDITION(more, walk.First(Document.Get("Variables").ToObject(), variable));
  while (more) {
    STEP(const Variant name = variable.Get("name"); Required(map).Add(name, variable.Get("value")));
    more = false;
    STEP(more = walk.Next(variable));
  }
  STEP(variables.mProperties.Let("DocumentValueMap", docId, Object(map)));
}

void ReportModule(Reporter& to) {
  const Variables& v = variables;
  to.Tell(u"mFormatDisplayNames", v.mFormatDisplayNames);
  to.Tell(u"mCurrentFormatter", v.mCurrentFormatter);
  to.Tell(u"mDisplayToClassNames", Object(v.mDisplayToClassNames));
  to.Tell(u"mFormatMetaData", Object(v.mFormatMetaData));
  to.Tell(u"mFormatters", Object(v.mFormatters));
  to.Tell(u"mProperties", v.mProperties);
}

}  // namespace strandline::CommonPropertyFunctions
