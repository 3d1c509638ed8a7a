#pragma once

#include "platform/variant.h"
#include "platform/win32/own_variant.h"
#include "platform/win32/win32_errors.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

class ComEnumerator final : public Enumerator {
 public:
  explicit ComEnumerator(ComRef<IEnumVARIANT> elements) : mElements(std::move(elements)) {}

  bool Next(Variant& element) override {
    OwnVariant next;
    ULONG fetched = 0;
    const HRESULT result = mElements->Next(1, next.get(), &fetched);
    RaiseIfFailed(result);
    if (result != S_OK || fetched == 0) return false;
    element = FromVARIANT(*next);
    return true;
  }

 private:
  ComRef<IEnumVARIANT> mElements;
};

}  // namespace strandline::win32
