#include "boxctl/session.h"

#include "boxctl/texts.h"

namespace panelora::boxctl {

void Require(bool done) {
  if (done) return;
  throw Failure(Exit::kNoBox,
                "another program keeps the simulated box: close that program and try again");
}

void Flush(std::ostream& out) {
  out.flush();
  if (out) return;
  throw Failure(Exit::kBadInput,
                "the answer can't be printed: is the disk full, or its reader gone?");
}

Host::Desk Session::Desk() {
  std::string error;
  const Host::Desk desk = host.OpenDesk(error);
  if (desk.shared == nullptr) throw Failure(Exit::kNoBox, Printable(error));
  return desk;
}

AttachedBox Session::Attach() {
  if (!IsSimulated()) {
    std::string error;
    DeviceLink* link = host.OpenLibrary(library, error);
    if (link == nullptr) throw Failure(Exit::kNoBox, Printable(error));
    return AttachedBox(*link);
  }
  if (benched == nullptr) {
    const Host::Desk desk = Desk();
    benched =
        std::make_unique<simulator::BenchedBox>(*desk.shared, *desk.host, simulator::By::kBoxctl);
  }
  return AttachedBox(*benched);
}

simulator::BoxControl Session::Control() {
  if (!IsSimulated()) {
    throw Failure(Exit::kBadInput, "only the simulated box can do that: leave out --library");
  }
  const Host::Desk desk = Desk();
  return {*desk.shared, *desk.host, simulator::By::kBoxctl};
}

simulator::BoxControl::Look Session::Look() {
  auto look = Control().LookAt();
  Require(look.has_value());
  return *look;
}

void Session::Say(const std::string& lines, const Json& asJson) {
  if (json) {
    streams.out << LineOf(asJson) << '\n';
  } else {
    streams.out << lines;
  }
  Flush(streams.out);
}

}  // namespace panelora::boxctl
