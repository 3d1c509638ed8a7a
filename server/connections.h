#pragma once

// The connection point of a class with events: who hears them outside. It is a part of its face and is counted with it.

#include <functional>
#include <span>
#include <vector>

#include "server/typed_face.h"
//
#include <ocidl.h>

namespace strandline::server {

struct Connection {
  DWORD cookie;
  win32::ComRef<IDispatch> sink;
};

class ConnectionPoint final : public IConnectionPoint, public ISupportErrorInfo {
 public:
  // For the events of that class. `onChange` is called with whether there is any connection, when that changes.
  ConnectionPoint(IConnectionPointContainer& owner, const PublicClass& about, std::function<void(bool)> onChange)
      : mOwner(owner), mAbout(about), mOnChange(std::move(onChange)) {}
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return mOwner.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return mOwner.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** owner) override;
  // Takes whatever has the event interface or, failing that, can be called by number.
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override { return id == IID_IConnectionPoint ? S_OK : S_FALSE; }

  // The owner's part, as the container of this one point.
  HRESULT Find(REFIID id, IConnectionPoint** found) noexcept;
  HRESULT Enumerate(IEnumConnectionPoints** points) noexcept;

  // Each sink connected now, unless it leaves meanwhile. A sink's failure is its own affair. The first argument stands
  // last, as always.
  void Raise(DISPID event, std::span<VARIANT> arguments);

 private:
  bool IsConnected(DWORD cookie) const;
  // Runs one method of an interface, told in its failure.
  template <class Body>
  HRESULT Guard(const IID& interfaceId, Body&& body) noexcept;

  IConnectionPointContainer& mOwner;
  const PublicClass& mAbout;
  std::function<void(bool)> mOnChange;
  std::vector<Connection> mConnections;
  DWORD mLastCookie = 0;
};

}  // namespace strandline::server
