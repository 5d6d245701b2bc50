#include "boxctl/files.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <utility>

#include "base/text.h"
#include "simulator/box_memory.h"

namespace panelora::boxctl {

namespace {

namespace fs = std::filesystem;

// More than any file of boxctl has. What is deeper would be copied and freed on the stack, level by
// level, and members are looked for one by one.
constexpr int kMostDepth = 8;
constexpr unsigned kMostMembers = 512;

fs::path PathOf(const std::string& path) { return {std::u8string(path.begin(), path.end())}; }

Failure DamageOf(const std::string& path, const std::string& what) {
  return {Exit::kBadInput, Printable(path) + " is damaged: " + Printable(what)};
}

// The text as JSON, discarded when it is none; a failure as soon as it goes beyond what can be in a
// file.
Json Parse(const std::string& path, const std::string& text) {
  std::array<unsigned, kMostDepth + 1> members{};  // so far of the object on each level
  const auto look = [&](int depth, Json::parse_event_t event, const Json& /*parsed*/) {
    const bool isBegin =
        event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
    if (isBegin && depth >= kMostDepth) {
      throw DamageOf(path, Format("it goes more than %d levels deep", kMostDepth));
    }
    const auto level = static_cast<std::size_t>(depth);
    if (isBegin) members.at(level + 1) = 0;
    if (event == Json::parse_event_t::key && ++members.at(level) > kMostMembers) {
      throw DamageOf(path, Format("an object has more than %u members", kMostMembers));
    }
    return true;
  };
  return Json::parse(text, look, false);
}

}  // namespace

std::string LineOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void RefuseFolder(const std::string& path) {
  std::error_code error;
  if (fs::is_directory(PathOf(path), error)) {
    throw Failure(Exit::kBadInput, Printable(path) + " is a folder: name a file");
  }
}

Failure NotOpened(const std::string& path) {
  return {Exit::kBadInput, Printable(path) + " can't be opened: is the name right?"};
}

Failure NotRead(const std::string& path) {
  return {Exit::kBadInput, Printable(path) + " can't be read to its end: is its disk all right?"};
}

std::string ReadFile(const std::string& path) {
  RefuseFolder(path);
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) throw NotOpened(path);
  std::string text;
  std::array<char, 4096> piece;
  do {
    file.read(piece.data(), piece.size());
    text.append(piece.data(), static_cast<std::size_t>(file.gcount()));
  } while (file && text.size() <= kMostFileBytes);
  if (file.bad()) throw NotRead(path);
  if (text.size() <= kMostFileBytes) return text;
  throw Failure(Exit::kBadInput, Printable(path) + " is larger than 4 MB: no file of boxctl is");
}

void WriteFile(const std::string& path, const std::string& text) {
  const fs::path wanted = PathOf(path);
  const fs::path beside = PathOf(path + ".boxctl-new");
  std::error_code error;
  {
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file) error = std::make_error_code(std::errc::io_error);
  }
  if (!error) fs::rename(beside, wanted, error);
  if (!error) return;
  std::error_code ignored;
  fs::remove(beside, ignored);
  throw Failure(Exit::kBadInput,
                Printable(path) + " can't be written: may you write in that folder?");
}

Members::Members(std::string thePath, Json theObject)
    : path(std::move(thePath)), object(std::move(theObject)) {
  if (!object.is_object()) throw Damage("there is no object where one belongs");
}

Members Members::OfFile(const std::string& path, const std::string& kind, std::uint32_t version) {
  Json json = Parse(path, ReadFile(path));
  if (json.is_discarded()) {
    throw Failure(Exit::kBadInput,
                  Printable(path) + " is damaged or no file of boxctl: it is no JSON");
  }
  Members members(path, std::move(json));
  if (members.Text("format") != kind) {
    throw Failure(Exit::kBadInput, Printable(path) + " is another kind of file: it must say \"" +
                                       kind + "\" as its format");
  }
  const std::uint32_t found = members.Number("version", std::numeric_limits<std::uint32_t>::max());
  if (found != version) {
    throw Failure(Exit::kBadInput,
                  Printable(path) + Format(" is of version %u, and this boxctl knows version %u: "
                                           "use the boxctl that wrote it",
                                           found, version));
  }
  return members;
}

Failure Members::Damage(const std::string& what) const { return DamageOf(path, what); }

const Json& Members::Find(const char* name) const {
  const auto found = object.find(name);
  if (found == object.end()) throw Damage(Format("\"%s\" is missing", name));
  return *found;
}

std::uint32_t Members::Number(const char* name, std::uint32_t most) const {
  const Json& value = Find(name);
  if (value.is_number_unsigned() && value.get<std::uint64_t>() <= most) {
    return value.get<std::uint32_t>();
  }
  throw Damage(Format("\"%s\" must be a number from 0 to %u", name, most));
}

std::uint8_t Members::Byte(const char* name) const {
  return static_cast<std::uint8_t>(Number(name, std::numeric_limits<std::uint8_t>::max()));
}

bool Members::Flag(const char* name) const {
  const Json& value = Find(name);
  if (!value.is_boolean()) throw Damage(Format("\"%s\" must be true or false", name));
  return value.get<bool>();
}

bool Members::Flag(const char* name, bool whenMissing) const {
  return object.contains(name) ? Flag(name) : whenMissing;
}

std::string Members::Text(const char* name) const {
  const Json& value = Find(name);
  if (!value.is_string()) throw Damage(Format("\"%s\" must be a text", name));
  return value.get<std::string>();
}

Bytes Members::Hex(const char* name) const {
  const std::optional<Bytes> bytes = BytesOfHex(Text(name));
  constexpr std::size_t kMost = simulator::KeptBlock::kMost;
  if (bytes && bytes->size() <= kMost) return *bytes;
  throw Damage(Format("\"%s\" must be pairs of hexadecimal digits, of %d bytes at most", name,
                      static_cast<int>(kMost)));
}

std::uint32_t Members::Firmware(const char* name) const {
  const auto version = NumberOf(Text(name), 0, kMostFirmware);
  if (!version) throw Damage(Format("\"%s\" must be a version from 0x0000 to 0xFFFF", name));
  return *version;
}

const Json& Members::Array(const char* name) const {
  const Json& value = Find(name);
  if (!value.is_array()) throw Damage(Format("\"%s\" must be a list", name));
  return value;
}

const Json& Members::Object(const char* name) const {
  const Json& value = Find(name);
  if (!value.is_object()) throw Damage(Format("\"%s\" must be an object", name));
  return value;
}

}  // namespace panelora::boxctl
