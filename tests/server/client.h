#pragma once

// A client of the DLL, as the product is one: it loads the module and goes by COM alone. What it hands in are objects
// of this program, which the DLL sees as foreign.

#include <functional>
#include <string>
#include <vector>

#include "platform/variant.h"
#include "platform/win32/outbound_dispatch.h"
//
#include "platform/win32/windows_api.h"
//
#include "strandline_com.h"

namespace strandline::servertest {

using win32::ComRef;

// The module for the time of a test; it is gone afterwards, unless something still holds it.
class Dll {
 public:
  Dll();
  ~Dll();
  Dll(const Dll&) = delete;
  Dll& operator=(const Dll&) = delete;

  HMODULE Module() const { return mModule; }
  std::wstring Path() const;
  HRESULT GetClassObject(const CLSID& classId, const IID& interfaceId, void** object) const;
  // S_OK or S_FALSE.
  HRESULT CanUnloadNow() const;
  HRESULT Call(const char* entry) const;

  ComRef<IClassFactory> Factory(const CLSID& classId) const;
  ComRef<_Main2> NewMain2() const;
  ComRef<_RibbonEvents> NewRibbonEvents() const;

 private:
  HMODULE mModule;
};

// An object with any members: each use goes to `answer`, and is noted as "get Version" and the like.
class Played final : public Dispatch {
 public:
  using Answer = std::function<Variant(Use use, std::string_view member, const Arguments& arguments)>;
  explicit Played(Answer answer) : mAnswer(std::move(answer)) {}

  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override { return 7; }

  std::vector<std::string> uses;

 private:
  Answer mAnswer;
};

// Word 2007, a store and a product state, of which each knows what Initialize needs.
struct PlayedProduct {
  PlayedProduct();
  Ref<Played> word;
  Ref<Played> properties;
  Ref<Played> productState;
  // Commands that the product was given.
  std::vector<std::string> commands;

  HRESULT Initialize(_Main2& main);
};

// As the world sees an object of this program.
ComRef<IDispatch> Outside(const Ref<Played>& object);

HRESULT InitializeWith(_Main2& main, IDispatch* word, IDispatch* properties, IDispatch* productState);

// A played object as one written for the system alone, which notices whoever touches it, be it by a release. It never
// ends by itself.
class Watched final : public IDispatch {
 public:
  explicit Watched(const Ref<Played>& played) : mPlayed(Outside(played)) {}
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

  std::function<void()> onTouch;
  ULONG owners = 1;  // the test's own

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override;

 private:
  void Touch() const {
    if (onTouch) onTouch();
  }

  ComRef<IDispatch> mPlayed;
};

// An automation object whose every member fails with `result`; it counts its owners in *owners, where given.
ComRef<IDispatch> NewFailing(HRESULT result, ULONG* owners = nullptr);

// A text for one call.
class Bstr {
 public:
  explicit Bstr(const wchar_t* text) : mText(::SysAllocString(text)) {}
  ~Bstr() { ::SysFreeString(mText); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR* Place() { return &mText; }
  std::wstring Text() const { return mText ? std::wstring(mText, ::SysStringLen(mText)) : std::wstring(); }

 private:
  BSTR mText;
};

// A call by number with arguments in their order; cleared by itself.
struct Called {
  Called() { VariantInit(&result); }
  ~Called();
  Called(const Called&) = delete;
  Called& operator=(const Called&) = delete;

  HRESULT outcome = S_OK;
  VARIANT result;
  EXCEPINFO exception{};
  UINT badArgument = 99;
};
void CallByNumber(IDispatch& object, DISPID id, std::vector<VARIANT> arguments, Called& called,
                  std::vector<DISPID> names = {}, WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);

VARIANT Of(VARTYPE type, void* place);  // by reference
VARIANT OfLong(LONG value);
VARIANT OfText(const Bstr& text);

struct ErrorInformation {
  std::wstring source;
  std::wstring description;
  GUID interfaceId{};
};
// What the calling thread has; empty where there is none.
ErrorInformation TakeErrorInformation();

}  // namespace strandline::servertest
