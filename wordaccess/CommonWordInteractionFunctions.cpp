#include "wordaccess/CommonWordInteractionFunctions.h"

#include <algorithm>

#include "platform/convert.h"

namespace strandline::CommonWordInteractionFunctions {

namespace {
constexpr ModuleFile kModule{&kModuleInfo};
constexpr Long kWordCannotBeNothing = 12345;
}  // namespace

void Initialize(const Object& word) {
  PROCEDURE(void, u"Initialize", word);
  if (word.IsNothing()) STEP(Raise(kWordCannotBeNothing, u"word cannot be nothing"));
  variables.mWord = word;
}

void Terminate() {
  PROCEDURE(void, u"Terminate");
  variables.mWord = nullptr;
}

Object Application() {
  PROCEDURE(Object, u"Application[Get]");
  return here.result = variables.mWord;
}

Object Templates() {
  PROCEDURE(Object, u"Templates[Get]");
  STEP(here.result = variables.mWord.Get("Templates").ToObject());
  return here.Leave();
}

Object Dialogs() {
  PROCEDURE(Object, u"Dialogs[Get]");
  STEP(here.result = variables.mWord.Get("Dialogs").ToObject());
  return here.Leave();
}

Object Documents() {
  PROCEDURE(Object, u"Documents[Get]");
  STEP(here.result = variables.mWord.Get("Documents").ToObject());
  return here.Leave();
}

Object activeWindow() {
  PROCEDURE(Object, u"activeWindow[Get]");
  STEP(here.result = variables.mWord.Get("ActiveWindow").ToObject());
  return here.Leave();
}

Object ActiveDocument() {
  PROCEDURE(Object, u"ActiveDocument[Get]");
  STEP(here.result = variables.mWord.Get("ActiveDocument").ToObject());
  return here.Leave();
}

Boolean ViewingReadingLayout() {
  PROCEDURE(Boolean, u"ViewingReadingLayout[Get]");
  // The version comes first: the member doesn't exist before Word 2003.
  if (!isWord2003OrLater()) return here.Leave();
  CONDITION(hasDocuments, Documents().Get("Count").ToLong() > 0);
  if (hasDocuments) {
    STEP(here.result = activeWindow().Get("View").ToObject().Get("ReadingLayout").ToBoolean());
  }
  return here.Leave();
}

// odd: later-separator
Integer WordVersion() {
  PROCEDURE(Integer, u"WordVersion[Get]");
  String version;
  Long dot = 0;
  Long comma = 0;
  Long separator = 0;
  REPORTS(version, dot, comma, separator);
  STEP(version = variables.mWord.Get("Version").ToText());
  dot = FindText(version, u".");
  comma = FindText(version, u",");
  // Where both separators stand in the text, the later one counts.
  separator = std::max(dot, comma);
  if (separator > 1) STEP(version = String(version.View().substr(0, static_cast<std::size_t>(separator - 1))));
  STEP(here.result = RoundToInteger(NumberFromText(version)));
  return here.Leave();
}

Boolean isWord2000() {
  PROCEDURE(Boolean, u"isWord2000[Get]");
  return here.result = WordVersion() == 9;
}

Boolean isWord2002OrEarlier() {
  PROCEDURE(Boolean, u"isWord2002OrEarlier[Get]");
  return here.result = WordVersion() < 11;
}

Boolean isWord2002OrLater() {
  PROCEDURE(Boolean, u"isWord2002OrLater[Get]");
  return here.result = WordVersion() >= 10;
}

Boolean isWord2003OrLater() {
  PROCEDURE(Boolean, u"isWord2003OrLater[Get]");
  return here.result = WordVersion() >= 11;
}

Boolean isWord2007OrLater() {
  PROCEDURE(Boolean, u"isWord2007OrLater[Get]");
  return here.result = WordVersion() >= 12;
}

void ReportModule(Reporter& to) { to.Tell(u"mWord", variables.mWord); }

}  // namespace strandline::CommonWordInteractionFunctions
