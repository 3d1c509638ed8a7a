#include "server/connections.h"

#include <algorithm>
#include <new>

#include "server/failure.h"

namespace strandline::server {

namespace {

using win32::ComRef;

// One element of an enumeration, counted for the caller.
void CopyTo(const Connection& from, CONNECTDATA& to) {
  to.dwCookie = from.cookie;
  to.pUnk = from.sink.get();
  to.pUnk->AddRef();
}
void CopyTo(const ComRef<IConnectionPoint>& from, IConnectionPoint*& to) {
  to = from.get();
  to->AddRef();
}

// The elements as they were when the enumeration began.
template <class Interface, class Element, class Given>
class Enumeration final : public Interface, private win32::LiveObject {
 public:
  explicit Enumeration(std::vector<Element> elements, std::size_t at = 0) : mElements(std::move(elements)), mAt(at) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = id == IID_IUnknown || id == __uuidof(Interface) ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++mOwners; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --mOwners;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP Next(ULONG wanted, Given* given, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!given || (!fetched && wanted != 1)) return E_POINTER;
    ULONG count = 0;
    for (; count < wanted && mAt < mElements.size(); ++count) CopyTo(mElements[mAt++], given[count]);
    if (fetched) *fetched = count;
    return count == wanted ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t left = mElements.size() - mAt;
    mAt += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    mAt = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** clone) override {
    if (!clone) return E_POINTER;
    return Make(mElements, mAt, clone);
  }

  static HRESULT Make(const std::vector<Element>& elements, std::size_t at, Interface** made) noexcept {
    *made = nullptr;
    try {
      *made = new Enumeration(elements, at);
      (*made)->AddRef();
      return S_OK;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  ~Enumeration() = default;

  std::vector<Element> mElements;
  std::size_t mAt;
  ULONG mOwners = 0;
};

using Connections = Enumeration<IEnumConnections, Connection, CONNECTDATA>;
using Points = Enumeration<IEnumConnectionPoints, ComRef<IConnectionPoint>, IConnectionPoint*>;

void Send(IDispatch& sink, DISPID event, std::span<VARIANT> arguments) {
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception{};
  UINT badArgument = 0;
  sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result, &exception, &badArgument);
  VariantClear(&result);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
}

}  // namespace

template <class Body>
HRESULT ConnectionPoint::Guard(const IID& interfaceId, Body&& body) noexcept {
  const ComRef<IConnectionPointContainer> held(&mOwner);
  return Guarded({&interfaceId, mAbout.name}, [&] {
    body();
    return S_OK;
  });
}

HRESULT ConnectionPoint::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (id == IID_IUnknown || id == IID_IConnectionPoint) *object = static_cast<IConnectionPoint*>(this);
  if (id == IID_ISupportErrorInfo) *object = static_cast<ISupportErrorInfo*>(this);
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) {
  return Guard(IID_IConnectionPoint, [&] {
    RequirePointers(id);
    *id = *mAbout.eventsId;
  });
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** owner) {
  return Guard(IID_IConnectionPoint, [&] {
    RequirePointers(owner);
    *owner = &mOwner;
    mOwner.AddRef();
  });
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  return Guard(IID_IConnectionPoint, [&] {
    RequirePointers(cookie);
    *cookie = 0;
    RequirePointers(sink);
    ComRef<IDispatch> called;
    // Some say yes and give nothing.
    if (FAILED(sink->QueryInterface(*mAbout.eventsId, called.PutVoid())) || !called) {
      if (FAILED(sink->QueryInterface(IID_IDispatch, called.PutVoid())) || !called) {
        throw Failure{CONNECT_E_CANNOTCONNECT};
      }
    }
    const DWORD given = ++mLastCookie;
    mConnections.push_back({given, called});
    try {
      if (mConnections.size() == 1) mOnChange(true);
    } catch (...) {
      std::erase_if(mConnections, [given](const Connection& connection) { return connection.cookie == given; });
      throw;
    }
    *cookie = given;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  return Guard(IID_IConnectionPoint, [&] {
    const auto at = std::find_if(mConnections.begin(), mConnections.end(),
                                 [cookie](const Connection& connection) { return connection.cookie == cookie; });
    if (at == mConnections.end()) throw Failure{CONNECT_E_NOCONNECTION};
    // Letting go of the sink may call back here.
    const ComRef<IDispatch> sink = at->sink;
    mConnections.erase(at);
    if (mConnections.empty()) mOnChange(false);
  });
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  return Guard(IID_IConnectionPoint, [&] {
    RequirePointers(connections);
    if (FAILED(Connections::Make(mConnections, 0, connections))) throw std::bad_alloc();
  });
}

HRESULT ConnectionPoint::Find(REFIID id, IConnectionPoint** found) noexcept {
  return Guard(IID_IConnectionPointContainer, [&] {
    RequirePointers(found);
    *found = nullptr;
    if (id != *mAbout.eventsId) throw Failure{CONNECT_E_NOCONNECTION};
    *found = this;
    AddRef();
  });
}

HRESULT ConnectionPoint::Enumerate(IEnumConnectionPoints** points) noexcept {
  return Guard(IID_IConnectionPointContainer, [&] {
    RequirePointers(points);
    *points = nullptr;
    if (FAILED(Points::Make({ComRef<IConnectionPoint>(this)}, 0, points))) throw std::bad_alloc();
  });
}

bool ConnectionPoint::IsConnected(DWORD cookie) const {
  return std::any_of(mConnections.begin(), mConnections.end(),
                     [cookie](const Connection& connection) { return connection.cookie == cookie; });
}

void ConnectionPoint::Raise(DISPID event, std::span<VARIANT> arguments) {
  const ComRef<IConnectionPointContainer> held(&mOwner);
  const std::vector<Connection> connected = mConnections;
  for (const Connection& connection : connected) {
    if (IsConnected(connection.cookie)) Send(*connection.sink.get(), event, arguments);
  }
}

}  // namespace strandline::server
