#include "platform/wrappers/call_argument.h"

namespace strandline::note {

String GuidText(const Guid& id) {
  std::u16string text = u"{";
  const auto append = [&text](std::uint32_t value, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) text += u"0123456789ABCDEF"[value >> shift & 0xF];
  };
  append(static_cast<std::uint32_t>(id.Data1), 8);
  text += u'-';
  append(static_cast<std::uint16_t>(id.Data2), 4);
  text += u'-';
  append(static_cast<std::uint16_t>(id.Data3), 4);
  text += u'-';
  for (int i = 0; i < 8; ++i) {
    if (i == 2) text += u'-';
    append(id.Data4[i], 2);
  }
  text += u'}';
  return text;
}

}  // namespace strandline::note
