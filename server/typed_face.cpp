#include "server/typed_face.h"

#include <new>

#include "platform/win32/received_call.h"
#include "platform/win32/win32_variant.h"

namespace strandline::server {

namespace {

// Whether the value can be what a parameter of that kind takes.
bool Fits(const Variant& value, VARTYPE kind) {
  try {
    if (kind == VT_BOOL) value.ToBoolean();
    if (kind == VT_BSTR) value.ToText();
    if (kind == VT_I2) value.ToInteger();
    if (kind == VT_DISPATCH) value.ToObject();
    return true;
  } catch (const Error&) {
    return false;
  }
}

// The first argument that doesn't fit its parameter, by its place in the client's list.
UINT Misfit(const MemberDescription& member, const Arguments& arguments) {
  const auto total = static_cast<UINT>(arguments.positional.size() + arguments.named.size());
  for (UINT i = 0; i < arguments.positional.size() && i < member.kinds.size(); ++i) {
    if (!Fits(arguments.positional[i], member.kinds[i])) return total - 1 - i;
  }
  for (UINT i = 0; i < arguments.named.size(); ++i) {
    for (std::size_t at = 0; at < member.parameters.size(); ++at) {
      const bool isThis = arguments.named[i].name == Name::FromText(member.parameters[at]);
      if (isThis && !Fits(arguments.named[i].value, member.kinds[at])) return i;
    }
  }
  return 0;
}

class NumberedCall {
 public:
  NumberedCall(const PublicClass& about, const MemberDescription& member) : mAbout(about), mMember(member) {}

  HRESULT Run(Dispatch& target, WORD flags, const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
              UINT* badArgument) {
    try {
      mCall.Take(parameters, false, [this](DISPID id) { return ParameterOf(id); });
      mIsTaken = true;
      const Use use = flags & DISPATCH_METHOD ? Use::kCall : Use::kGet;
      const Variant answer = target.Invoke(use, Name::FromText(mMember.name), mCall.Get());
      mIsTaken = false;
      mCall.WriteBack();
      if (result) *result = win32::ToVARIANT(answer);
      return S_OK;
    } catch (const Error& error) {
      return Refuse(error, exception, badArgument);
    }
  }

 private:
  const std::string* ParameterOf(DISPID id) const {
    const bool known = id >= 0 && static_cast<std::size_t>(id) < mMember.parameters.size();
    return known ? &mMember.parameters[static_cast<std::size_t>(id)] : nullptr;
  }

  HRESULT Refuse(const Error& error, EXCEPINFO* exception, UINT* badArgument) const {
    const HRESULT result = StandardResult(error);
    if (result == DISP_E_TYPEMISMATCH || result == DISP_E_OVERFLOW || result == DISP_E_PARAMNOTFOUND) {
      const bool isMisfit = mIsTaken && result != DISP_E_PARAMNOTFOUND;
      if (badArgument) *badArgument = isMisfit ? Misfit(mMember, mCall.Get()) : mCall.BadArgument();
    }
    const bool isStandard = HRESULT_FACILITY(result) != FACILITY_CONTROL;
    Fail(mAbout.AsOrigin(), result, error.description);
    return isStandard ? result : win32::ToException(error, mAbout.name, exception);
  }

  const PublicClass& mAbout;
  const MemberDescription& mMember;
  win32::ReceivedCall mCall;
  bool mIsTaken = false;  // the arguments are read, and not yet to be written
};

}  // namespace

HRESULT InvokeByNumber(const PublicClass& about, Dispatch& target, DISPID id, REFIID interfaceId, WORD flags,
                       DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept {
  return Guarded(about.AsOrigin(), [&] {
    if (result) VariantInit(result);
    if (interfaceId != IID_NULL) throw Failure{DISP_E_UNKNOWNINTERFACE};
    if (!parameters) throw Failure{E_INVALIDARG};
    const MemberDescription* const member = TypeDescription::Of(about.interfaceId).Find(id);
    const bool isLet = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    if (!member || isLet) throw Failure{DISP_E_MEMBERNOTFOUND};
    return NumberedCall(about, *member).Run(target, flags, *parameters, result, exception, badArgument);
  });
}

HRESULT NumbersOfNames(const PublicClass& about, REFIID interfaceId, LPOLESTR* names, UINT count,
                       DISPID* ids) noexcept {
  return Guarded(about.AsOrigin(), [&] {
    if (interfaceId != IID_NULL) throw Failure{DISP_E_UNKNOWNINTERFACE};
    if (!names || !ids || count == 0) throw Failure{E_INVALIDARG};
    for (UINT i = 0; i < count; ++i) {
      if (!names[i]) throw Failure{E_INVALIDARG};
    }
    const HRESULT found = TypeDescription::Of(about.interfaceId).Info()->GetIDsOfNames(names, count, ids);
    return FAILED(found) ? Fail(about.AsOrigin(), found) : found;
  });
}

}  // namespace strandline::server
