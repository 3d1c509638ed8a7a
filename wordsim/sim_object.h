#pragma once

// SimObject is what stands behind every simulated object of Word and of the product. All uses of all members pass
// through its one Invoke: armed failures first, then the class's table of members, then the observer.
//
// Objects may be held longer than what they belong to (a closed document, the whole world); once gone, an object raises
// "Object has been deleted" and touches nothing.

#include <string>
#include <vector>

#include "wordsim/member_table.h"
#include "wordsim/use_faults.h"
#include "wordsim/use_observer.h"

namespace strandline::wordsim {

class SimObject;

namespace word_errors {
inline constexpr Long kBadFileName = 4160;
inline constexpr Long kNoDocumentOpen = 4248;
inline constexpr Long kNotAvailable = 4605;
inline constexpr Long kObjectDeleted = 5825;
inline constexpr Long kNoSuchElement = 5941;
}  // namespace word_errors

[[noreturn]] void RaiseNoDocumentOpen();
[[noreturn]] void RaiseNotAvailable();
[[noreturn]] void RaiseObjectDeleted();
[[noreturn]] void RaiseNoSuchElement();

// What all objects of one world share.
class ObjectUses final : public RefCounted {
 public:
  UseObserver* observer = nullptr;
  UseFaults faults;

  void Enter(SimObject* object) { mLive.push_back(object); }
  void Leave(SimObject* object);
  // The world ends: every object that is still held is gone.
  void EndAll();
  Long NextIdentity() { return ++mLastIdentity; }

 private:
  std::vector<SimObject*> mLive;
  Long mLastIdentity = 1'000'000;  // beyond the numbers of documents
};

class SimObject : public Dispatch {
 public:
  Variant Invoke(Use use, Name member, const Arguments& arguments) final;
  Long Identity() const override;

  // The name under which the journal knows the object; a gone one keeps its last.
  std::string JournalName() const { return mIsGone ? mLastName : ObjectName(); }
  void MarkGone();
  bool IsGone() const { return mIsGone; }

 protected:
  explicit SimObject(Ref<ObjectUses> uses);
  ~SimObject() override;
  virtual std::string ObjectName() const = 0;
  virtual MemberTable Members() const = 0;
  ObjectUses& Uses() const { return *mUses; }
  const Ref<ObjectUses>& SharedUses() const { return mUses; }

 private:
  Variant Perform(Use use, Name member, const Arguments& arguments);

  Ref<ObjectUses> mUses;
  bool mIsGone = false;
  std::string mLastName;
  mutable Long mIdentity = 0;
};

// A collection: Count and At are all that a class must give for going through it.
class SimCollection : public SimObject {
 public:
  using SimObject::SimObject;
  Ref<Enumerator> Elements() override;
  virtual Long Count() const = 0;
  virtual Object At(Long position) const = 0;  // 1 to Count

 protected:
  Variant CountMember(const Call&) { return Count(); }
};

// The journal's name of an object; empty for Nothing and for what isn't of this world.
std::string JournalNameOf(const Object& object);

}  // namespace strandline::wordsim
