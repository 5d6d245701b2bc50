#include "tests/boxctl/boxctl_desk.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <streambuf>

#include "boxctl/boxctl.h"
#include "tests/trace/record_of.h"

namespace panelora::boxctl {

namespace {

// A disk that becomes full, or a pipe whose reader goes.
class LimitedOutput final : public std::streambuf {
 public:
  explicit LimitedOutput(std::size_t theRoom) : room(theRoom) {}

  const std::string& Text() const { return text; }

 protected:
  int_type overflow(int_type letter) override {  // NOLINT(readability-identifier-naming)
    if (text.size() == room) return traits_type::eof();
    text += traits_type::to_char_type(letter);
    return letter;
  }

 private:
  std::size_t room;
  std::string text;
};

}  // namespace

using simulator::BenchedBox;
using simulator::By;
using simulator::SharedBox;

TestHost::TestHost()
    : desk(std::make_unique<SharedBox>()),
      real(std::make_unique<SharedBox>()),
      library(std::make_unique<BenchedBox>(*real, *this, By::kPanel)) {
  simulator::MakeBox(*desk);
  simulator::MakeBox(*real);
}

Host::Desk TestHost::OpenDesk(std::string& error) {
  if (hasDesk) return {desk.get(), this};
  error = "the simulated box has no memory: error 8";
  return {};
}

DeviceLink* TestHost::OpenLibrary(const std::string& path, std::string& error) {
  if (path == "real.dll") return library.get();
  error = path + " can't be loaded (error 126): is the name right?";
  return nullptr;
}

std::unique_ptr<std::streambuf> TestHost::OpenShared(const std::string& path, std::uint64_t from) {
  auto file = std::make_unique<std::filebuf>();
  if (file->open(path, std::ios::in | std::ios::binary) == nullptr) return nullptr;
  openedFrom = from;
  file->pubseekpos(static_cast<std::streamoff>(from));
  return file;
}

void TestHost::Sleep(std::uint32_t milliseconds) {
  now += milliseconds;
  if (whenSleeping) whenSleeping(sleeps);
  ++sleeps;
}

BoxctlTest::BoxctlTest() {
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  folder = testing::TempDir() + "boxctl_" + test.test_suite_name() + "_" + test.name();
  for (char& letter : folder) {
    if (letter == '#') letter = '_';
  }
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
}

BoxctlTest::~BoxctlTest() {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

BoxctlTest::Ran BoxctlTest::Run(const std::vector<std::string>& arguments,
                                const std::string& input) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const int code = boxctl::Run(arguments, host, in, out, err);
  return {code, out.str(), err.str()};
}

BoxctlTest::Ran BoxctlTest::RunWithRoom(std::size_t room, const std::vector<std::string>& arguments,
                                        const std::string& input) {
  LimitedOutput limited(room);
  std::istringstream in(input);
  std::ostream out(&limited);
  std::ostringstream err;
  const int code = boxctl::Run(arguments, host, in, out, err);
  return {code, limited.Text(), err.str()};
}

std::string BoxctlTest::Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void BoxctlTest::Put(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

void BoxctlTest::Become(std::uint8_t type, std::uint8_t brand) {
  Control().Become({type, brand, 0, 0, 0}, 0xFFFF);
}

std::string BoxctlTest::TraceOfDesk() const {
  const simulator::Journal& journal = host.desk->journal;
  std::string text(trace::Line::First(1).Text());
  for (std::uint64_t number = 1; number <= journal.last; ++number) {
    const simulator::Entry& entry = journal.entries[number % simulator::Journal::kHeld];
    const auto duration = static_cast<std::uint32_t>(number * 1000);
    const trace::TracedCall traced = {TestHost::kBegin, duration, CallOf(entry), number};
    text += trace::Line::OfCall(number, trace::RecordOf(traced)).Text();
  }
  return text;
}

std::vector<std::string> BoxctlTest::WritesOf(const SharedBox& box, std::uint64_t& last) {
  std::vector<std::string> writes;
  for (; last < box.journal.last; ++last) {
    const Call call = CallOf(box.journal.entries[(last + 1) % simulator::Journal::kHeld]);
    if (call.IsWrite()) writes.push_back(TextOf(call));
  }
  return writes;
}

}  // namespace panelora::boxctl
