#pragma once

// One load of the library. Making it runs the start routine; its end forgets every module's variables, as unloading the
// module does. One load exists at a time in a process, and no Main2 outlives it; what outsiders still hold (the relays)
// does, and does nothing then.

#include "addin/Main2.h"
#include "drawing/LoadImageFromResource.h"
#include "foundation/CommonLogger.h"
#include "platform/platform.h"

namespace strandline {

class Library {
 public:
  // The interfaces belong to the caller and outlive the load.
  explicit Library(const Platform& services);
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // Leaves behind whatever the modules hold, instead of letting go of it: for a moment at which nothing outside may be
  // called any more, such as the end of the process, or not from here, such as another thread than the load's. A load
  // that began before is never ended then.
  static void Abandon() noexcept;

  Ref<Main2> CreateMain2();

  // Null takes an observer off; the end of the load does too.
  void SetLogObserver(LogObserver* observer);
  void SetPictureObserver(PictureObserver* observer);

  // The factory's own stub, which outsiders are handed; Nothing without a factory.
  static Object AdCallback();

  // Everything that the library holds: Main2, the modules, the factory, and each toolbar.
  void ReportState(StateVisitor& to) const;

  // Called by each Main2 as it begins and ends.
  static void Enter(const Main2* main);
  static void Leave(const Main2* main);
};

}  // namespace strandline
