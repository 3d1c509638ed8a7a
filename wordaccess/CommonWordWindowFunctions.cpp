#include "wordaccess/CommonWordWindowFunctions.h"

#include "platform/platform.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline::CommonWordWindowFunctions {

namespace {

constexpr ModuleInfo kModuleInfo{u"CommonWordWindowFunctions", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

const String kWordClass = u"OpusApp";
const String kOutlookClass = u"rctrl_renwnd32";  // hosts a document below Word 2003
const String kSavePromptTitle = u"Microsoft Word";

constexpr Long kTitleLimit = 255;
constexpr Long kShow = 5;
constexpr Long kRestore = 9;
constexpr Long kTrue = -1;
constexpr Long kFalse = 0;

}  // namespace

void ActivateActiveDocumentWindow() {
  PROCEDURE(void, u"ActivateActiveDocumentWindow");
  Boolean inOutlook2000 = false;
  REPORTS(inOutlook2000);
  ForceForegroundWindow(ActiveDocumentHandle(inOutlook2000));
}

Boolean ForceForegroundWindow(Long hwnd) {
  PROCEDURE(Boolean, u"ForceForegroundWindow", hwnd);
  Windows& windows = platform::Windows();
  Long foregroundThread = 0;
  Long targetThread = 0;
  Long granted = 0;
  REPORTS(foregroundThread, targetThread, granted);
  if (windows.GetForegroundWindow() == hwnd) return here.result = true;
  foregroundThread = windows.GetWindowThreadProcessId(windows.GetForegroundWindow());
  targetThread = windows.GetWindowThreadProcessId(hwnd);
  if (foregroundThread == targetThread) {
    granted = windows.SetForegroundWindow(hwnd);
  } else {
    // Nothing that can wait may stand between attaching and detaching.
    windows.AttachThreadInput(foregroundThread, targetThread, kTrue);
    granted = windows.SetForegroundWindow(hwnd);
    windows.AttachThreadInput(foregroundThread, targetThread, kFalse);
  }
  windows.ShowWindow(hwnd, windows.IsIconic(hwnd) != 0 ? kRestore : kShow);
  return here.result = granted != 0;
}

Long ActiveDocumentHandle(Boolean& inOutlook2000) {
  PROCEDURE(Long, u"ActiveDocumentHandle", inOutlook2000);
  String name;
  REPORTS(name);
  CONDITION(noDocument, CommonWordInteractionFunctions::Documents().Get("Count").ToLong() == 0);
  if (noDocument) return here.result = platform::Windows().FindWindowExA(0, 0, &kWordClass, nullptr);
  here.IgnoreErrors();
  STEP(name = CommonWordInteractionFunctions::Application().Get("ActiveDocument").ToObject().Get("name").ToText());
  if (!name.IsEmpty()) here.result = ActiveDocumentHandleImpl(kWordClass, name);
  if (here.result == 0 && CommonWordInteractionFunctions::isWord2002OrEarlier()) {
    here.result = ActiveDocumentHandleImpl(kOutlookClass, name);
    inOutlook2000 = true;
  }
  return here.Leave();
}

Long ActiveDocumentHandle() {
  Boolean dropped = false;
  return ActiveDocumentHandle(dropped);
}

Long ActiveDocumentHandleImpl(const String& className, const String& name) {
  PROCEDURE(Long, u"ActiveDocumentHandleImpl", className, name);
  Windows& windows = platform::Windows();
  Long active = 0;
  Long hwnd = 0;
  String title;
  REPORTS(active, hwnd, title);
  active = windows.GetActiveWindow();
  while ((hwnd = windows.FindWindowExA(0, hwnd, &className, nullptr)) != 0) {
    if (hwnd == active) return here.result = hwnd;
  }
  while ((hwnd = windows.FindWindowExA(0, hwnd, &className, nullptr)) != 0) {
    STEP(title = windows.GetWindowTextA(hwnd, kTitleLimit));
    if (FindText(title, name) > 0) return here.result = hwnd;
  }
  return here.Leave();
}

Boolean CancelCloseDueToSave(const Object& doc) {
  PROCEDURE(Boolean, u"CancelCloseDueToSave", doc);
  Long answer = 0;
  REPORTS(answer);
  CONDITION(saved, doc.Get("Saved").ToBoolean());
  if (saved) return here.Leave();
  CONDITION(blankAndNew,
            doc.Get("Path").ToText().Length() == 0 && doc.Get("Characters").ToObject().Get("count").ToLong() == 1);
  if (blankAndNew) return here.Leave();
  STEP(answer =
           platform::RunTime().MsgBox(Concat({u"Do you want to save the changes to ", doc.Get("name").ToText(), u"?"}),
                                      msgbox::kYesNoCancel + msgbox::kExclamation, &kSavePromptTitle));
  if (answer == msgbox::kAnswerCancel) return here.result = true;
  if (answer == msgbox::kAnswerYes) ATTEMPT(notSaved, doc.Call("Save"));
  // Word is to ask nothing further.
  if (answer == msgbox::kAnswerNo) STEP(doc.Let("Saved", true));
  return here.Leave();
notSaved:
  return here.result = true;
}

}  // namespace strandline::CommonWordWindowFunctions
