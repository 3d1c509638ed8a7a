#pragma once

// Hears every event of an object, for a script, which can't be a sink itself.

#include <map>
#include <memory>
#include <vector>

#include "tests/script/helper/member_table.h"

namespace strandline::script {

class Listener final : public Dispatch {
 public:
  // Raises 438 for an object without events.
  explicit Listener(const Object& source);

  // Heard: the events so far, a line `name(argument, argument)` each; Clear forgets them. Answer(event, text): what the
  // event's by-reference arrays of bytes are filled with from now on, a byte for each character. Stop: hears no more.
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override { return IdentityOf(this); }

  struct Record {
    String heard;
    std::map<String, String> answers;
  };

 private:
  struct Connection;

  void Terminated() override { Disconnect(); }
  void Disconnect();
  Variant Heard(Given given);
  Variant Clear(Given given);
  Variant Answer(Given given);
  Variant Stop(Given given);

  std::shared_ptr<Record> mRecord;
  std::vector<std::shared_ptr<Connection>> mConnections;
};

}  // namespace strandline::script
