// Objects of the automation world behind the seam's Object, and the components that give the first of them.

#include "win32_dispatch.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "outbound_dispatch.h"
#include "win32_errors.h"
#include "win32_pictures.h"
#include "win32_variant.h"
#include "windows_api.h"
//
#include <dispex.h>

namespace strandline::win32 {

namespace {

// Room for so many on the stack, and on the heap from there on.
template <class T, std::size_t kRoom>
class Slots {
 public:
  explicit Slots(std::size_t count) : mCount(count) {
    if (count > kRoom) mMore = std::make_unique<T[]>(count);
  }
  T* data() { return mMore ? mMore.get() : mRoom.data(); }
  T& operator[](std::size_t i) { return data()[i]; }
  std::size_t size() const { return mCount; }

 private:
  std::array<T, kRoom> mRoom{};
  std::unique_ptr<T[]> mMore;
  std::size_t mCount;
};

// One argument of a call. What goes by reference has its value in a variant of our own meanwhile, but for numbers,
// which the callee reaches where they are.
class Argument {
 public:
  Argument() {
    VariantInit(&mPassed);
    VariantInit(&mOwn);
  }
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;
  ~Argument() { VariantClear(&mOwn); }

  void Take(const Variant& given) {
    mGiven = &given;
    if (const auto* number = given.If<Integer*>()) return Refer(VT_I2, *number);
    if (const auto* number = given.If<Long*>()) return Refer(VT_I4, *number);
    if (const auto* number = given.If<Double*>()) return Refer(VT_R8, *number);
    mOwn = ToVARIANT(given);
    if (!given.IsByRef()) {
      mPassed = mOwn;
      return;
    }
    mWriteBack = true;
    if (given.If<Variant*>()) return Refer(VT_VARIANT, &mOwn);
    Refer(mOwn.vt, &mOwn.byref);
  }
  // Only the bits: the variant is ours to clear.
  const VARIANT& Passed() const { return mPassed; }
  void WriteBack() const {
    if (mWriteBack) mGiven->Assign(FromVARIANT(mOwn));
  }

 private:
  void Refer(VARTYPE type, void* place) {
    mPassed.vt = static_cast<VARTYPE>(VT_BYREF | type);
    mPassed.byref = place;
  }

  const Variant* mGiven = nullptr;
  VARIANT mPassed;
  VARIANT mOwn;
  bool mWriteBack = false;
};

class ComEnumerator final : public Enumerator {
 public:
  explicit ComEnumerator(ComRef<IEnumVARIANT> elements) : mElements(std::move(elements)) {}

  bool Next(Variant& element) override {
    VARIANT next;
    VariantInit(&next);
    ULONG fetched = 0;
    const HRESULT result = mElements->Next(1, &next, &fetched);
    RaiseIfFailed(result);
    if (result != S_OK || fetched == 0) return false;
    struct Cleared {
      VARIANT& value;
      ~Cleared() { VariantClear(&value); }
    } const cleared{next};
    element = FromVARIANT(next);
    return true;
  }

 private:
  ComRef<IEnumVARIANT> mElements;
};

using Names = Slots<OLECHAR*, 8>;
using Identifiers = Slots<DISPID, 8>;

// Names one after the other, as the system wants them. They are plain ASCII.
class WideNames {
 public:
  WideNames(Name member, std::span<const Named> named) : mNames(named.size() + 1) {
    std::size_t length = member.Text().size() + 1;
    for (const Named& argument : named) length += argument.name.Text().size() + 1;
    if (length > mRoom.size()) mMore.resize(length);
    wchar_t* to = mMore.empty() ? mRoom.data() : mMore.data();
    to = Put(0, member, to);
    for (std::size_t i = 0; i < named.size(); ++i) to = Put(i + 1, named[i].name, to);
  }
  WideNames(const WideNames&) = delete;
  WideNames& operator=(const WideNames&) = delete;
  OLECHAR** data() { return mNames.data(); }
  UINT size() const { return static_cast<UINT>(mNames.size()); }

 private:
  wchar_t* Put(std::size_t at, Name name, wchar_t* to) {
    mNames[at] = to;
    for (char c : name.Text()) *to++ = static_cast<unsigned char>(c);
    *to++ = L'\0';
    return to;
  }

  std::array<wchar_t, 128> mRoom;
  std::vector<wchar_t> mMore;
  Names mNames;
};

class ComDispatch;

// The wrapper of each object that is held, by the object's identity, so that one object is one Object.
std::map<IUnknown*, ComDispatch*>& Wrappers() {
  static std::map<IUnknown*, ComDispatch*> wrappers;
  return wrappers;
}

class ComDispatch final : public Dispatch {
 public:
  ComDispatch(ComRef<IDispatch> object, IUnknown* identity) : mObject(std::move(object)), mIdentity(identity) {
    Wrappers().emplace(mIdentity, this);
  }
  ~ComDispatch() override { Wrappers().erase(mIdentity); }

  IDispatch* Com() const { return mObject.get(); }

  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    // The object's own code may let go of it.
    const ComRef<IDispatch> object = mObject;
    const std::size_t named = arguments.named.size();
    Identifiers ids(named + 1);
    Find(*object.get(), member, arguments.named, ids);
    return Call(*object.get(), use, ids, arguments);
  }

  Long Identity() const override { return ToNumber(mIdentity); }

  Ref<Enumerator> Elements() override {
    const ComRef<IDispatch> object = mObject;
    DISPPARAMS none{};
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception{};
    const HRESULT called = object->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                                          DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &result, &exception, nullptr);
    if (FAILED(called)) RaiseResult(called, exception);
    ComRef<IEnumVARIANT> elements;
    HRESULT queried = DISP_E_MEMBERNOTFOUND;
    if ((result.vt == VT_UNKNOWN || result.vt == VT_DISPATCH) && result.punkVal) {
      queried = result.punkVal->QueryInterface(IID_IEnumVARIANT, elements.PutVoid());
    }
    VariantClear(&result);
    if (FAILED(queried)) Raise(errors::kNoSuchMember);
    return Ref<Enumerator>(New<ComEnumerator>(elements));
  }

  Picture AsPicture() const override {
    Picture picture = PictureOf(mObject.get());
    if (!picture) Raise(errors::kTypeMismatch);
    return picture;
  }

 private:
  // Objects of scripts know their names through IDispatchEx only.
  static void Find(IDispatch& object, Name member, std::span<const Named> named, Identifiers& ids) {
    WideNames names(member, named);
    HRESULT found = object.GetIDsOfNames(IID_NULL, names.data(), names.size(), LOCALE_USER_DEFAULT, ids.data());
    ComRef<IDispatchEx> extended;
    if (found == E_NOTIMPL && named.empty() &&
        SUCCEEDED(object.QueryInterface(__uuidof(IDispatchEx), extended.PutVoid()))) {
      const BSTR name = SysAllocString(names.data()[0]);
      found = name ? extended->GetDispID(name, fdexNameCaseInsensitive, ids.data()) : E_OUTOFMEMORY;
      SysFreeString(name);
    }
    if (SUCCEEDED(found)) return;
    if (found == DISP_E_UNKNOWNNAME && !named.empty() && ids[0] != DISPID_UNKNOWN) Raise(errors::kNoSuchNamedArgument);
    RaiseResult(found);
  }

  // The last of the positional arguments goes first, behind the named ones; the value of a property counts as named.
  static Variant Call(IDispatch& object, Use use, Identifiers& ids, const Arguments& arguments) {
    const std::size_t positional = arguments.positional.size();
    const std::size_t named = arguments.named.size();
    Slots<Argument, 8> slots(positional + named);
    Slots<VARIANT, 8> passed(positional + named);
    for (std::size_t i = 0; i < named; ++i) slots[i].Take(arguments.named[i].value);
    for (std::size_t i = 0; i < positional; ++i) slots[named + positional - 1 - i].Take(arguments.positional[i]);
    for (std::size_t i = 0; i < positional + named; ++i) passed[i] = slots[i].Passed();

    DISPID valueId = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{passed.data(), ids.data() + 1, static_cast<UINT>(positional + named),
                          static_cast<UINT>(named)};
    WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    if (use == Use::kLet) {
      if (positional == 0 || named != 0) Raise(errors::kWrongNumberOfArguments);
      parameters.rgdispidNamedArgs = &valueId;
      parameters.cNamedArgs = 1;
      flags = passed[0].vt == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    }

    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception{};
    VARIANT* const wanted = use == Use::kLet ? nullptr : &result;
    HRESULT called =
        object.Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, wanted, &exception, nullptr);
    // Some objects have only the one of the two ways to set an object.
    if (called == DISP_E_MEMBERNOTFOUND && flags == DISPATCH_PROPERTYPUTREF) {
      called = object.Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, wanted,
                             &exception, nullptr);
    }
    struct Cleared {
      VARIANT& value;
      ~Cleared() { VariantClear(&value); }
    } const cleared{result};
    // What the callee has written stays written, even where it failed.
    for (std::size_t i = 0; i < slots.size(); ++i) slots[i].WriteBack();
    if (FAILED(called)) RaiseResult(called, exception);
    return FromVARIANT(result);
  }

  ComRef<IDispatch> mObject;
  IUnknown* const mIdentity;
};

}  // namespace

Object Wrap(IDispatch* object) {
  if (!object) return nullptr;
  if (Ref<Dispatch> ours = TargetOf(object)) return ours;
  ComRef<IUnknown> identity;
  RaiseIfFailed(object->QueryInterface(IID_IUnknown, identity.PutVoid()));
  const auto known = Wrappers().find(identity.get());
  if (known != Wrappers().end()) return Ref<Dispatch>(known->second);
  return Ref<Dispatch>(new ComDispatch(ComRef<IDispatch>(object), identity.get()));
}

IDispatch* Unwrap(const Object& object) {
  if (object.IsNothing()) return nullptr;
  const auto* foreign = dynamic_cast<const ComDispatch*>(object.Target());
  IDispatch* const result = foreign ? foreign->Com() : OutboundOf(*object.Target());
  if (foreign) result->AddRef();
  return result;
}

Object Win32Components::CreateObject(const String& progId) {
  CLSID id{};
  ComRef<IDispatch> object;
  if (FAILED(::CLSIDFromProgID(Wide(progId), &id)) ||
      FAILED(::CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, object.PutVoid()))) {
    Raise(errors::kCannotCreateComponent);
  }
  return Wrap(object.get());
}

}  // namespace strandline::win32
