// A DEVLNK.dll that is wrong in one way, chosen by definitions:
//   FAKE_OPEN    what opening answers
//   FAKE_RESULT  what every other call answers
//   FAKE_WRITES  1 = reads fill all that was asked for with 0xFF, behind the type of a real box
//   FAKE_LACKS_SET_VIDEO_PROC_AMP  that export is not there
#include <cstdint>
#include <cstring>

#include "device/devlnk_library.h"

namespace {
constexpr std::uint8_t kIdentity = 254;
constexpr std::uint8_t kBoxType = 26;
}  // namespace

extern "C" std::uint32_t PANELORA_DEVLNK_CALL DEVLNK_OPEN(std::uint32_t) { return FAKE_OPEN; }

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROPERTY(std::uint32_t,
                                                                std::uint8_t property, std::uint8_t,
                                                                std::uint8_t length,
                                                                std::uint8_t* out) {
  if (FAKE_WRITES != 0) {
    std::memset(out, 0xFF, length);
    if (property == kIdentity) out[0] = kBoxType;
  }
  return FAKE_RESULT;
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_SET_KIRABOX_PROPERTY(std::uint32_t, std::uint8_t,
                                                                std::uint8_t, std::uint8_t,
                                                                std::uint8_t*) {
  return FAKE_RESULT;
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_BOX_PROPERTY(std::uint32_t, std::uint32_t,
                                                            std::uint32_t, std::uint32_t* out) {
  if (FAKE_WRITES != 0) out[0] = out[1] = 0xFFFFFFFF;
  return FAKE_RESULT;
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_SET_BOX_PROPERTY(std::uint32_t, std::uint32_t,
                                                            std::uint32_t, std::uint32_t) {
  return FAKE_RESULT;
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROC_AMP(std::uint32_t, std::uint8_t* first,
                                                                std::uint8_t* second,
                                                                std::uint8_t* third,
                                                                std::uint8_t* fourth) {
  if (FAKE_WRITES != 0) *first = *second = *third = *fourth = 0xFF;
  return FAKE_RESULT;
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_VIDEO_PROC_AMP(std::uint32_t, std::uint32_t,
                                                              std::uint32_t, std::uint32_t* out) {
  if (FAKE_WRITES != 0) out[0] = 0xFFFFFFFF;
  return FAKE_RESULT;
}

#ifndef FAKE_LACKS_SET_VIDEO_PROC_AMP
extern "C" int PANELORA_DEVLNK_CALL DEVLNK_SET_VIDEO_PROC_AMP(std::uint32_t, std::uint32_t,
                                                              std::uint32_t, std::uint32_t) {
  return FAKE_RESULT;
}
#endif
