#pragma once

namespace strandline::wordhosttest {

// What this process holds of the system's at the moment.
struct SystemHandles {
  int graphics = 0;  // contexts, bitmaps, brushes, regions…
  int windows = 0;

  static SystemHandles Now();
};

}  // namespace strandline::wordhosttest
