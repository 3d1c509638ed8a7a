// What the library adds to Windows' own calls: a message that the hook leaves alone, and a late-bound read.

#include <cstdio>
#include <cwchar>

#include "addin/Main2.h"
#include "addin/library.h"
#include "bench/windows/measure.h"
#include "platform/win32/comctl_hooks.h"
#include "platform/win32/host/win32_host_canvas.h"
#include "platform/win32/host/win32_host_clock.h"
#include "platform/win32/host/win32_host_windows.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_variant.h"
#include "wordsim/product.h"
#include "wordsim/word_world.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::bench {
namespace {

// One that neither the strip nor the simulated Word knows.
constexpr UINT kUnknownMessage = WM_USER + 77;

class Plain final : public WindowProcedure {
 public:
  explicit Plain(HostWindows& host) : mHost(host) {}
  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override {
    return mHost.DefaultProcedure(hwnd, message, wParam, lParam);
  }

 private:
  HostWindows& mHost;
};

// Asks for nothing and passes all on: what any hook of this kind costs.
class Idle final : public MessageSink {
 public:
  void BeforeMessage(Long, Long, Long, Long&, Boolean&) override {}
};

LRESULT CALLBACK PassOn(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  return win32::ComctlHooks::Get().passOn(hwnd, message, wParam, lParam);
}

void MeasureMessages() {
  win32::Win32Platform platform(u"Software\\Strandline Bench");
  win32::Win32HostWindows host;
  win32::Win32HostCanvas canvas;
  win32::Win32HostClock clock;
  wordsim::WordWorld word(platform.Services(), host, canvas, clock, {});
  Library library(platform.Services());
  const Ref<Main2> main = library.CreateMain2();
  Object application = word.Application();
  Object properties = word.Properties();
  Object productState = word.ProductState();
  String name = u"Quillmere";
  main->Initialize(application, properties, productState, name);
  word.Open(u"Thesis.doc");
  Boolean fromIcon = false;
  main->HandleCreateDocument(fromIcon);
  clock.Wait(100);

  Plain plain(host);
  const Long bare = host.CreateWindowOf(u"MsoCommandBar", u"Bare", word.ActiveTopWindow(), {0, 0, 100, 30}, &plain);
  const Long passed = host.CreateWindowOf(u"MsoCommandBar", u"Passed", word.ActiveTopWindow(), {0, 0, 100, 30}, &plain);
  win32::ComctlHooks::Get().set(win32::ToHandle<HWND>(passed), &PassOn, 1, 0);
  const Long hooked = host.CreateWindowOf(u"MsoCommandBar", u"Hooked", word.ActiveTopWindow(), {0, 0, 100, 30}, &plain);
  Idle idle;
  const Ref<Subclasser> hook = platform.Services().subclassers->Create();
  hook->SetSink(&idle);
  hook->Subclass(hooked);

  const auto send = [](Long hwnd) {
    return [window = win32::ToHandle<HWND>(hwnd)] { ::SendMessageW(window, kUnknownMessage, 1, 2); };
  };
  Compare("a message that the hook leaves alone, by SendMessage",
          {{"to a window of Word's without a hook", send(bare)},
           {"to the same with a bare SetWindowSubclass that passes on", send(passed)},
           {"to the same with a hook of ours whose sink is idle", send(hooked)},
           {"to the strip's window", send(word.ActiveBarWindow())}},
          5000);
  hook->SetSink(nullptr);
  hook->Unsubclass();
  main->Quit();
}

// An object as a component would write it: twenty names, found by comparing, and numbers behind them.
class Numbers final : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *object = this;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++mOwners; }
  STDMETHODIMP_(ULONG) Release() override { return --mOwners; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    for (DISPID id = 0; id < 20; ++id) {
      if (_wcsicmp(names[0], kNames[id]) != 0) continue;
      *ids = id + 1;
      return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
    if (result) {
      result->vt = VT_I4;
      result->lVal = id;
    }
    return S_OK;
  }

 private:
  static constexpr const wchar_t* kNames[20] = {L"Application", L"Creator", L"Parent",  L"Name",   L"Index",
                                                L"Visible",     L"Enabled", L"Caption", L"Height", L"Width",
                                                L"Left",        L"Top",     L"State",   L"Tag",    L"Type",
                                                L"Controls",    L"Count",   L"Item",    L"Delete", L"Execute"};
  ULONG mOwners = 1;
};

void MeasureReads() {
  Numbers numbers;
  const Object object = win32::Wrap(&numbers);
  volatile Long sum = 0;
  const auto invoke = [&](DISPID id) {
    DISPPARAMS none{};
    VARIANT result;
    VariantInit(&result);
    numbers.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &result, nullptr, nullptr);
    sum = sum + result.lVal;
    VariantClear(&result);
  };
  IDispatch* volatile target = &numbers;
  const auto find = [&] {
    OLECHAR name[] = L"Height";
    LPOLESTR names = name;
    DISPID id = 0;
    target->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
  };
  Compare("a late-bound read of a number",
          {{"IDispatch::Invoke with the member's number at hand", [&] { invoke(9); }},
           {"GetIDsOfNames and Invoke, as a script's every read", [&] { invoke(find()); }},
           {"Object::Get", [&] { sum = sum + object.Get("Height").ToLong(); }}},
          20000);
}

}  // namespace
}  // namespace strandline::bench

int main() {
  if (FAILED(::OleInitialize(nullptr))) return 1;
  strandline::bench::MeasureMessages();
  strandline::bench::MeasureReads();
  ::OleUninitialize();
  return 0;
}
