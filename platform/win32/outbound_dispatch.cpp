// The generic face: any object of ours by the names of its members.

#include "platform/win32/outbound_dispatch.h"

#include <deque>
#include <string>
#include <utility>

#include "platform/win32/face.h"
#include "platform/win32/received_call.h"
#include "platform/win32/win32_pictures.h"
#include "platform/win32/win32_variant.h"

namespace strandline::win32 {

namespace {

// An object behind the seam doesn't tell which members it has before one is used, so every name gets a number, that of
// an argument too. The texts stay where they are for good, since names refer to them. The numbers begin above those
// that the members of pictures and collections have everywhere. Never destroyed, as the faces that use it may outlive
// all else.
class MemberNames {
 public:
  DISPID IdOf(const wchar_t* wide) {
    std::string text = ToUtf8(TextView(reinterpret_cast<const char16_t*>(wide)));
    const Name sought = Name::FromText(text);
    if (sought == "_NewEnum") return DISPID_NEWENUM;
    for (std::size_t i = 0; i < mMembers.size(); ++i) {
      if (mMembers[i].name == sought) return kFirst + static_cast<DISPID>(i);
    }
    mMembers.emplace_back(std::move(text));
    return kFirst + static_cast<DISPID>(mMembers.size() - 1);
  }
  const std::string* TextOf(DISPID id) const {
    const bool known = id >= kFirst && static_cast<std::size_t>(id - kFirst) < mMembers.size();
    return known ? &mMembers[static_cast<std::size_t>(id - kFirst)].text : nullptr;
  }

 private:
  static constexpr DISPID kFirst = 0x1000;

  struct Member {
    explicit Member(std::string given) : text(std::move(given)), name(Name::FromText(text)) {}
    Member(const Member&) = delete;
    Member& operator=(const Member&) = delete;
    const std::string text;
    const Name name;  // refers to the text
  };

  std::deque<Member> mMembers;
};

MemberNames& Members() {
  static MemberNames& names = *new MemberNames;
  return names;
}

// The elements of a collection, for a For Each on the other side.
class ElementEnumerator final : public IEnumVARIANT, private LiveObject {
 public:
  explicit ElementEnumerator(Dispatch& collection) : mCollection(&collection), mElements(collection.Elements()) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = id == IID_IUnknown || id == IID_IEnumVARIANT ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++mOwners; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --mOwners;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP Next(ULONG wanted, VARIANT* elements, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!elements) return E_POINTER;
    ULONG count = 0;
    const HRESULT result = Guarded([&] {
      for (Variant element; count < wanted && mElements->Next(element); ++count) elements[count] = ToVARIANT(element);
      mPassed += count;
      return count == wanted ? S_OK : S_FALSE;
    });
    while (FAILED(result) && count > 0) VariantClear(&elements[--count]);
    if (fetched) *fetched = count;
    return result;
  }
  STDMETHODIMP Skip(ULONG count) override {
    return Guarded([&] { return Pass(count) ? S_OK : S_FALSE; });
  }
  STDMETHODIMP Reset() override {
    return Guarded([&] {
      mElements = mCollection->Elements();
      mPassed = 0;
      return S_OK;
    });
  }
  STDMETHODIMP Clone(IEnumVARIANT** clone) override {
    if (!clone) return E_POINTER;
    *clone = nullptr;
    return Guarded([&] {
      const ComRef<ElementEnumerator> made(new ElementEnumerator(*mCollection));
      made->Pass(mPassed);
      made->AddRef();
      *clone = made.get();
      return S_OK;
    });
  }

 private:
  friend class ComRef<ElementEnumerator>;
  ~ElementEnumerator() = default;

  bool Pass(ULONG count) {
    Variant element;
    for (; count > 0; --count, ++mPassed) {
      if (!mElements->Next(element)) return false;
    }
    return true;
  }

  template <class Body>
  HRESULT Guarded(Body body) noexcept {
    const ComRef<ElementEnumerator> held(this);
    try {
      return body();
    } catch (const Error& error) {
      return ControlResult(error);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  Ref<Dispatch> mCollection;
  Ref<Enumerator> mElements;
  ULONG mPassed = 0;
  ULONG mOwners = 0;
};

class GenericFace final : public IDispatch, public Face {
 public:
  explicit GenericFace(Dispatch& target) : Face(target) {}

  IDispatch* Automation() override { return this; }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id == IID_IPicture || id == IID_IPictureDisp) {
      const ComRef<IDispatch> picture = AsPicture();
      return picture ? picture->QueryInterface(id, object) : E_NOINTERFACE;
    }
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    Hold();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return Hold(); }
  STDMETHODIMP_(ULONG) Release() override { return LetGo(); }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info) *info = nullptr;
    return E_NOTIMPL;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    try {
      for (UINT i = 0; i < count; ++i) {
        if (!names[i]) return E_INVALIDARG;
        ids[i] = Members().IdOf(names[i]);
      }
    } catch (...) {
      return E_OUTOFMEMORY;
    }
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override {
    if (!parameters) return E_INVALIDARG;
    const FaceHold held(*this);
    try {
      if (const std::string* const member = Members().TextOf(id)) {
        return Call(Name::FromText(*member), flags, *parameters, result);
      }
      if (id == DISPID_NEWENUM) return Enumerate(result);
      if (const ComRef<IDispatch> picture = AsPicture()) {
        return picture->Invoke(id, interfaceId, locale, flags, parameters, result, exception, badArgument);
      }
      if (id == DISPID_VALUE && parameters->cArgs > 0) return Call("Item", flags, *parameters, result);
      return DISP_E_MEMBERNOTFOUND;
    } catch (const Error& error) {
      return ToException(error, nullptr, exception);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  ~GenericFace() override = default;

  // A get may be a method's call as well, and is announced as both; a call alone is announced as one.
  static Use UseOf(WORD flags) {
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) return Use::kLet;
    return flags & DISPATCH_PROPERTYGET ? Use::kGet : Use::kCall;
  }

  HRESULT Call(Name member, WORD flags, const DISPPARAMS& parameters, VARIANT* result) {
    const Use use = UseOf(flags);
    ReceivedCall call;
    call.Take(parameters, use == Use::kLet, [](DISPID id) { return Members().TextOf(id); });
    const Variant answer = Target().Invoke(use, member, call.Get());
    call.WriteBack();
    if (result) *result = ToVARIANT(answer);
    return S_OK;
  }

  HRESULT Enumerate(VARIANT* result) {
    if (!result) return E_POINTER;
    const ComRef<ElementEnumerator> made(new ElementEnumerator(Target()));
    made->AddRef();
    VariantInit(result);
    result->vt = VT_UNKNOWN;
    result->punkVal = made.get();
    return S_OK;
  }

  // The system's own object of the picture that this object is; null if it is none.
  ComRef<IDispatch> AsPicture() const noexcept {
    ComRef<IDispatch> object;
    try {
      if (const Picture picture = Target().AsPicture()) *object.Put() = DispatchOf(*picture);
    } catch (...) {
    }
    return object;
  }
};

}  // namespace

Face* NewGenericFace(Dispatch& target) { return new GenericFace(target); }

}  // namespace strandline::win32
