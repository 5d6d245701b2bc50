// Files of JSON: read with distrust, written whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "boxctl/failure.h"
#include "boxctl/json.h"
#include "boxctl/texts.h"

namespace panelora::boxctl {

// No file that is read here is larger.
constexpr std::size_t kMostFileBytes = 4U << 20;

// Paths are in UTF-8. What is wrong is a failure that names the file.
std::string ReadFile(const std::string& path);
// Refuses what is no file that can be read.
void RefuseFolder(const std::string& path);
Failure NotOpened(const std::string& path);
// Of a file that was opened: what was read of it is not all.
Failure NotRead(const std::string& path);
// Over a new file beside it, which takes its place in one go.
void WriteFile(const std::string& path, const std::string& text);

// The members of a file's object, each taken with its type. A member that is missing or of another
// type is a failure that names file and member.
class Members {
 public:
  // The object that the file holds, which must say that it is of this kind and version.
  static Members OfFile(const std::string& path, const std::string& kind, std::uint32_t version);

  Members(std::string thePath, Json theObject);

  std::uint32_t Number(const char* name, std::uint32_t most) const;
  std::uint8_t Byte(const char* name) const;
  bool Flag(const char* name) const;
  bool Flag(const char* name, bool whenMissing) const;
  std::string Text(const char* name) const;
  Bytes Hex(const char* name) const;  // no more than a block has
  std::uint32_t Firmware(const char* name) const;
  const Json& Array(const char* name) const;
  const Json& Object(const char* name) const;

  // That the file is damaged: its path and this.
  Failure Damage(const std::string& what) const;
  const std::string& Path() const { return path; }

 private:
  const Json& Find(const char* name) const;

  std::string path;
  Json object;
};

}  // namespace panelora::boxctl
