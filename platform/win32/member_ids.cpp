#include "platform/win32/member_ids.h"

#include <array>
#include <cstring>
#include <map>
#include <tuple>

#include "platform/win32/slots.h"
#include "platform/win32/win32_errors.h"
#include "platform/win32/windows_api.h"
//
#include <dispex.h>

namespace strandline::win32 {

namespace {

constexpr std::size_t kMostTypes = 128;
constexpr std::size_t kMostOfAType = 256;

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
  Slots<OLECHAR*, 8> mNames;
};

// Objects of scripts may know their names through IDispatchEx only.
HRESULT AskExtended(IDispatch& object, const OLECHAR* name, DISPID* id) {
  ComRef<IDispatchEx> extended;
  if (FAILED(object.QueryInterface(__uuidof(IDispatchEx), extended.PutVoid()))) return E_NOTIMPL;
  const BSTR copy = ::SysAllocString(name);
  if (!copy) return E_OUTOFMEMORY;
  const HRESULT found = extended->GetDispID(copy, fdexNameCaseInsensitive, id);
  ::SysFreeString(copy);
  return found;
}

// What a type is known by, in the whole process. Its identifier alone won't do: engines of scripts have one for the
// types of all their scripts.
struct TypeKey {
  GUID library;
  GUID type;
  LCID language;
  WORD major;
  WORD minor;
};

struct TypeOrder {
  bool operator()(const TypeKey& a, const TypeKey& b) const {
    if (const int order = std::memcmp(&a.library, &b.library, sizeof a.library)) return order < 0;
    if (const int order = std::memcmp(&a.type, &b.type, sizeof a.type)) return order < 0;
    return std::tie(a.language, a.major, a.minor) < std::tie(b.language, b.major, b.minor);
  }
};

// Null when there are too many types.
KnownMembers* MembersOf(const TypeKey& type) {
  static std::map<TypeKey, KnownMembers, TypeOrder> types;
  const auto known = types.find(type);
  if (known != types.end()) return &known->second;
  return types.size() < kMostTypes ? &types.emplace(type, KnownMembers(kMostOfAType)).first->second : nullptr;
}

// Whether the identifiers in a type's description are a contract, by which programs call that were compiled with it.
bool BindsItsObjects(const TYPEATTR& about) {
  return (about.wTypeFlags & (TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION)) != 0;
}

// False for a type that isn't of a library, or that its objects needn't keep to.
bool FindKey(ITypeInfo& description, TypeKey& key) {
  ComRef<ITypeLib> library;
  UINT index = 0;
  TYPEATTR* about = nullptr;
  TLIBATTR* aboutLibrary = nullptr;
  if (FAILED(description.GetTypeAttr(&about)) || !about) return false;
  key.type = about->guid;
  const bool binds = BindsItsObjects(*about) && about->guid != GUID_NULL;
  description.ReleaseTypeAttr(about);
  if (!binds || FAILED(description.GetContainingTypeLib(library.Put(), &index)) || !library) return false;
  if (FAILED(library->GetLibAttr(&aboutLibrary)) || !aboutLibrary) return false;
  key.library = aboutLibrary->guid;
  key.language = aboutLibrary->lcid;
  key.major = aboutLibrary->wMajorVerNum;
  key.minor = aboutLibrary->wMinorVerNum;
  library->ReleaseTLibAttr(aboutLibrary);
  return key.library != GUID_NULL;
}

// An object that has it may have members of its own beside its type's.
bool IsExtended(IDispatch& object) {
  ComRef<IDispatchEx> extended;
  return SUCCEEDED(object.QueryInterface(__uuidof(IDispatchEx), extended.PutVoid()));
}

}  // namespace

const DISPID* KnownMembers::Find(Name member) const {
  for (const Known& known : mKnown) {
    if (known.hash == member.Hash() && known.text == member.Text()) return &known.id;
  }
  return nullptr;
}

void KnownMembers::Add(Name member, DISPID id) {
  if (mKnown.size() < mMost) mKnown.push_back({member.Hash(), id, std::string(member.Text())});
}

DISPID MemberIds::Find(IDispatch& object, Name member) {
  if (const DISPID* known = mOwn.Find(member)) return *known;
  if (!mHasLooked) LookForType(object);
  if (const DISPID* known = mOfType ? mOfType->Find(member) : nullptr) return *known;
  return Ask(object, member);
}

DISPID MemberIds::Ask(IDispatch& object, Name member) {
  WideNames names(member, {});
  DISPID id = DISPID_UNKNOWN;
  HRESULT found = object.GetIDsOfNames(IID_NULL, names.data(), 1, LOCALE_USER_DEFAULT, &id);
  if (found == E_NOTIMPL) found = AskExtended(object, names.data()[0], &id);
  if (FAILED(found)) RaiseResult(found);
  DISPID ofType = DISPID_UNKNOWN;
  const bool same = mOfType && SUCCEEDED(mType->GetIDsOfNames(names.data(), 1, &ofType)) && ofType == id;
  (same ? *mOfType : mOwn).Add(member, id);
  return id;
}

void MemberIds::LookForType(IDispatch& object) {
  mHasLooked = true;
  UINT count = 0;
  TypeKey key{};
  if (FAILED(object.GetTypeInfoCount(&count)) || count == 0 || IsExtended(object)) return;
  if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, mType.Put())) || !mType) return;
  if (FindKey(*mType.get(), key)) mOfType = MembersOf(key);
  if (!mOfType) mType = {};
}

void MemberIds::FindNamed(IDispatch& object, Name member, std::span<const Named> named, DISPID* ids) {
  WideNames names(member, named);
  ids[0] = DISPID_UNKNOWN;
  const HRESULT found = object.GetIDsOfNames(IID_NULL, names.data(), names.size(), LOCALE_USER_DEFAULT, ids);
  if (SUCCEEDED(found)) return;
  if (found == E_NOTIMPL && SUCCEEDED(AskExtended(object, names.data()[0], ids))) Raise(errors::kNoNamedArguments);
  if (found == DISP_E_UNKNOWNNAME && ids[0] != DISPID_UNKNOWN) Raise(errors::kNoSuchNamedArgument);
  RaiseResult(found);
}

}  // namespace strandline::win32
