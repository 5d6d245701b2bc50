// A DEVLNK.dll that is wrong in one way, chosen by definitions:
//   FAKE_OPEN     what opening answers
//   FAKE_RESULT   what every other call answers
//   FAKE_WRITES   1 = reads fill all that was asked for with 0xFF, behind the type of a real box
//   FAKE_RANDOM   1 = all of this is drawn by chance instead, from the seed in PANELORA_FAKE_SEED
//   FAKE_REFUSES  1 = it does not let itself be loaded
#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <random>

#include "device/devlnk_library.h"

namespace {

constexpr std::uint8_t kIdentity = 254;
constexpr std::uint8_t kBoxType = 26;

// A number from 0 to 2^31 - 2.
std::uint32_t Drawn() {
  static std::minstd_rand generator = [] {
    const char* seed = std::getenv("PANELORA_FAKE_SEED");
    return std::minstd_rand(seed != nullptr ? static_cast<unsigned>(std::atoi(seed)) : 1U);
  }();
  return static_cast<std::uint32_t>(generator()) - 1;
}

std::uint8_t DrawnByte() { return static_cast<std::uint8_t>(Drawn() >> 8); }

std::uint32_t DrawnWord() {
  std::uint32_t word = 0;
  for (int i = 0; i < 4; ++i) word = word << 8 | DrawnByte();
  return word;
}

std::uint32_t OpenAnswer() {
  if (FAKE_RANDOM == 0) return FAKE_OPEN;
  return Drawn() % 8 == 0 ? panelora::kNoBox : DrawnWord();
}

// Of three calls drawn, two succeed: otherwise no box would stay for long.
int Result() {
  if (FAKE_RANDOM == 0) return FAKE_RESULT;
  return Drawn() % 3 != 0 ? panelora::kSuccess : static_cast<int>(DrawnWord());
}

template <class Value>
void Fill(Value* out, int count) {
  for (int i = 0; i < count; ++i) {
    if (FAKE_RANDOM != 0) {
      out[i] = static_cast<Value>(DrawnWord());
    } else if (FAKE_WRITES != 0) {
      out[i] = static_cast<Value>(0xFFFFFFFF);
    }
  }
}

}  // namespace

#if FAKE_REFUSES
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
  return reason != DLL_PROCESS_ATTACH;
}
#endif

extern "C" std::uint32_t PANELORA_DEVLNK_CALL DEVLNK_OPEN(std::uint32_t) { return OpenAnswer(); }

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROPERTY(std::uint32_t,
                                                                std::uint8_t property, std::uint8_t,
                                                                std::uint8_t length,
                                                                std::uint8_t* out) {
  Fill(out, length);
  const bool isBox = FAKE_RANDOM != 0 ? Drawn() % 2 == 0 : FAKE_WRITES != 0;
  if (property == kIdentity && isBox) out[0] = kBoxType;
  return Result();
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_SET_KIRABOX_PROPERTY(std::uint32_t, std::uint8_t,
                                                                std::uint8_t, std::uint8_t,
                                                                std::uint8_t*) {
  return Result();
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_BOX_PROPERTY(std::uint32_t, std::uint32_t,
                                                            std::uint32_t, std::uint32_t* out) {
  Fill(out, 2);
  return Result();
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_SET_BOX_PROPERTY(std::uint32_t, std::uint32_t,
                                                            std::uint32_t, std::uint32_t) {
  return Result();
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROC_AMP(std::uint32_t, std::uint8_t* first,
                                                                std::uint8_t* second,
                                                                std::uint8_t* third,
                                                                std::uint8_t* fourth) {
  for (std::uint8_t* each : {first, second, third, fourth}) Fill(each, 1);
  return Result();
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_GET_VIDEO_PROC_AMP(std::uint32_t, std::uint32_t,
                                                              std::uint32_t, std::uint32_t* out) {
  Fill(out, 1);
  return Result();
}

extern "C" int PANELORA_DEVLNK_CALL DEVLNK_SET_VIDEO_PROC_AMP(std::uint32_t, std::uint32_t,
                                                              std::uint32_t, std::uint32_t) {
  return Result();
}
