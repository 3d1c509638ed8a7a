#include "platform/win32/host/classic_colours.h"

#include "platform/looks/system_colours.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

void Set(const std::vector<Long>& colors) {
  std::vector<int> indexes;
  std::vector<COLORREF> values;
  for (const Long color : colors) {
    indexes.push_back(static_cast<int>(indexes.size()));
    values.push_back(static_cast<COLORREF>(color));
  }
  ::SetSysColors(static_cast<int>(indexes.size()), indexes.data(), values.data());
}

}  // namespace

ClassicColours::ClassicColours() {
  std::vector<Long> classic;
  for (Long index = 0; index <= system_color::kLast; ++index) {
    mFormer.push_back(static_cast<Long>(::GetSysColor(index)));
    classic.push_back(static_cast<Long>(SystemColor(index)));
  }
  Set(classic);
}

ClassicColours::~ClassicColours() { Set(mFormer); }

}  // namespace strandline::win32
