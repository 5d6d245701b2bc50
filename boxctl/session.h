// What a command works on: a box, the operator's streams, and how answers are printed.
#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>

#include "boxctl/attached_box.h"
#include "boxctl/failure.h"
#include "boxctl/host.h"
#include "boxctl/json.h"
#include "simulator/benched_box.h"
#include "simulator/box_control.h"

namespace panelora::boxctl {

class Session {
 public:
  struct Streams {
    std::istream& in;
    std::ostream& out;
  };

  // All of them outlive it. `library` is the path of a library, or empty for the desk's box.
  Session(Host& theHost, const Streams& theStreams, std::string theLibrary, bool isJson)
      : host(theHost), streams(theStreams), library(std::move(theLibrary)), json(isJson) {}

  // The box through its calls; a failure when none answers.
  AttachedBox Attach();
  // The simulated box beside its calls; a failure with a library, which may have a real box.
  simulator::BoxControl Control();
  // What Control sees of it in one moment; a failure, too, while another program keeps the box.
  simulator::BoxControl::Look Look();
  bool IsSimulated() const { return library.empty(); }

  // Prints lines, or the same as JSON, at once.
  void Say(const std::string& lines, const Json& asJson);
  bool IsJson() const { return json; }
  std::istream& In() { return streams.in; }
  std::ostream& Out() { return streams.out; }
  Host& System() { return host; }

 private:
  Host::Desk Desk();

  Host& host;
  Streams streams;
  std::string library;
  bool json;
  std::unique_ptr<simulator::BenchedBox> benched;
};

// What the simulated box could not do because another program keeps it.
void Require(bool done);

// Gives away what was printed; a failure when that, or anything before it, could not be written.
void Flush(std::ostream& out);

}  // namespace panelora::boxctl
