#pragma once

// What the DLL tells the registry about itself: its classes, their names and its type library. It goes to the machine's
// classes, and to the user's where the machine's are closed to this user.

#include <string>
//
#include "platform/win32/windows_api.h"

namespace strandline::server {

class Registrar {
 public:
  // A key under which classes stand.
  struct Root {
    HKEY parent;
    std::wstring path;
  };

  Registrar(Root machine, Root user, std::wstring modulePath);
  static Registrar OfThisModule();

  // For the machine, which takes what a user had before, or else for the user. SELFREG_E_CLASS or SELFREG_E_TYPELIB if
  // neither takes it; nothing is left then.
  HRESULT Register() const;
  // Takes everything out of both. What another architecture's DLL has told stays.
  HRESULT Unregister() const;

 private:
  bool IsOpen(const Root& root) const;
  HRESULT RegisterAt(const Root& root, bool forUser) const;
  HRESULT RegisterTypeLibrary(HKEY classes, bool forUser) const;
  LSTATUS WriteClasses(HKEY classes) const;
  LSTATUS WriteTypeLibrary(HKEY classes) const;
  LSTATUS RemoveClasses(const Root& root) const;
  LSTATUS RemoveTypeLibrary(const Root& root) const;
  HRESULT Remove(const Root& root) const;

  Root mMachine;
  Root mUser;
  std::wstring mModulePath;
};

}  // namespace strandline::server
