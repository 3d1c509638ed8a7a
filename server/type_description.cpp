#include "server/type_description.h"

#include <list>
#include <utility>

#include "server/failure.h"
#include "server/module.h"

namespace strandline::server {

namespace {

using win32::ComRef;

struct Known {
  ComRef<ITypeLib> library;
  std::list<std::pair<IID, TypeDescription>> descriptions;
};

// Never destroyed: what it holds isn't let go of while the DLL goes.
Known& Descriptions() {
  static Known& known = *new Known;
  return known;
}

HRESULT Library(ComRef<ITypeLib>& library) {
  ComRef<ITypeLib>& known = Descriptions().library;
  if (!known) {
    const HRESULT loaded = ::LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, known.Put());
    if (FAILED(loaded)) return loaded;
  }
  library = known;
  return S_OK;
}

// The names are plain ASCII.
std::string Narrow(BSTR text) { return std::string(text, text + ::SysStringLen(text)); }

VARTYPE KindOf(const TYPEDESC& type) {
  const TYPEDESC* at = &type;
  while (at->vt == VT_PTR && at->lptdesc) at = at->lptdesc;
  return at->vt == VT_USERDEFINED ? static_cast<VARTYPE>(VT_DISPATCH) : at->vt;
}

void Add(std::vector<MemberDescription>& members, ITypeInfo& info, const FUNCDESC& function) {
  constexpr UINT kMost = 16;
  BSTR names[kMost] = {};
  UINT count = 0;
  if (FAILED(info.GetNames(function.memid, names, kMost, &count))) return;
  MemberDescription member{function.memid, {}, {}, {}};
  for (UINT i = 0; i < count; ++i) {
    const UINT parameter = i - 1;
    if (i == 0) {
      member.name = Narrow(names[i]);
    } else if (parameter < static_cast<UINT>(function.cParams) &&
               !(function.lprgelemdescParam[parameter].paramdesc.wParamFlags & PARAMFLAG_FRETVAL)) {
      member.parameters.push_back(Narrow(names[i]));
      member.kinds.push_back(KindOf(function.lprgelemdescParam[parameter].tdesc));
    }
    ::SysFreeString(names[i]);
  }
  members.push_back(std::move(member));
}

}  // namespace

TypeDescription::TypeDescription(ComRef<ITypeInfo> info) : mInfo(std::move(info)) {
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(mInfo->GetFuncDesc(i, &function)); ++i) {
    const bool isInherited = function->wFuncFlags & FUNCFLAG_FRESTRICTED;
    if (!isInherited) Add(mMembers, *mInfo.get(), *function);
    mInfo->ReleaseFuncDesc(function);
  }
}

const TypeDescription& TypeDescription::Of(const IID& interfaceId) {
  auto& descriptions = Descriptions().descriptions;
  for (const auto& [id, description] : descriptions) {
    if (id == interfaceId) return description;
  }
  ComRef<ITypeLib> library;
  ComRef<ITypeInfo> info;
  HRESULT found = Library(library);
  if (SUCCEEDED(found)) found = library->GetTypeInfoOfGuid(interfaceId, info.Put());
  if (FAILED(found)) throw Failure{found};
  return descriptions.emplace_back(interfaceId, TypeDescription(info)).second;
}

HRESULT TypeDescription::OfClass(const CLSID& id, ITypeInfo** info) {
  ComRef<ITypeLib> library;
  const HRESULT found = Library(library);
  return SUCCEEDED(found) ? library->GetTypeInfoOfGuid(id, info) : found;
}

void TypeDescription::ForgetAll() { Descriptions() = {}; }

const MemberDescription* TypeDescription::Find(DISPID id) const {
  for (const MemberDescription& member : mMembers) {
    if (member.id == id) return &member;
  }
  return nullptr;
}

}  // namespace strandline::server
