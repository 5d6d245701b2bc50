// The drop-in DEVLNK.dll over the simulated box of the desk.
#include <windows.h>

#include <algorithm>
#include <memory>
#include <string>

#include "device/devlnk_library.h"
#include "simulator/benched_box.h"
#include "simulator/mapped_box.h"

namespace panelora::simulator {

namespace {

// Without a box every call fails, as it does without a converter.
class DeskBox {
 public:
  // Tries again where the box could not be had: what kept it may be gone.
  BenchedBox* Open() {
    if (box != nullptr) return box.get();
    mapped = std::make_unique<MappedBox>();
    if (mapped->IsOpen()) {
      box = std::make_unique<BenchedBox>(mapped->Shared(), *mapped, By::kPanel);
    } else if (mapped->Error() != told) {
      told = mapped->Error();
      OutputDebugStringA(("Panelora: " + told + "\n").c_str());
    }
    return box.get();
  }

  BenchedBox* Get() { return box.get(); }

 private:
  std::unique_ptr<MappedBox> mapped;
  std::unique_ptr<BenchedBox> box;
  std::string told;  // why it could not be had
};

DeskBox& Desk() {
  static DeskBox desk;
  return desk;
}

BenchedBox* Box() { return Desk().Get(); }

}  // namespace

}  // namespace panelora::simulator

using panelora::BlockBuffer;
using panelora::ProcAmpBytes;
using panelora::WordBuffer;
using namespace panelora::simulator;  // NOLINT: the exports stand outside every namespace

namespace {
constexpr int kFailure = 0;
}

#define DEVLNK_EXPORT extern "C" __declspec(dllexport)

DEVLNK_EXPORT std::uint32_t PANELORA_DEVLNK_CALL DEVLNK_OPEN(std::uint32_t mode) {
  BenchedBox* box = Desk().Open();
  return box != nullptr ? box->Open(mode) : panelora::kNoBox;
}

// What a failed call does not answer stays as it is.
DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROPERTY(std::uint32_t handle,
                                                                   std::uint8_t property,
                                                                   std::uint8_t sub,
                                                                   std::uint8_t length,
                                                                   std::uint8_t* out) {
  BenchedBox* box = Box();
  if (box == nullptr) return kFailure;
  BlockBuffer answer{};
  std::copy_n(out, length, answer.begin());
  const int result = box->GetKiraboxProperty(handle, property, sub, length, answer);
  std::copy_n(answer.begin(), length, out);
  return result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_KIRABOX_PROPERTY(std::uint32_t handle,
                                                                   std::uint8_t property,
                                                                   std::uint8_t sub,
                                                                   std::uint8_t length,
                                                                   std::uint8_t* bytes) {
  BenchedBox* box = Box();
  if (box == nullptr) return kFailure;
  BlockBuffer sent{};
  std::copy_n(bytes, length, sent.begin());
  return box->SetKiraboxProperty(handle, property, sub, length, sent);
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_BOX_PROPERTY(std::uint32_t handle,
                                                               std::uint32_t group,
                                                               std::uint32_t item,
                                                               std::uint32_t* out) {
  BenchedBox* box = Box();
  if (box == nullptr) return kFailure;
  const BenchedBox::WordAnswer answer = box->ReadWords(handle, group, item);
  std::copy_n(answer.words.begin(), answer.count, out);
  return answer.result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_BOX_PROPERTY(std::uint32_t handle,
                                                               std::uint32_t group,
                                                               std::uint32_t item,
                                                               std::uint32_t value) {
  BenchedBox* box = Box();
  return box != nullptr ? box->SetBoxProperty(handle, group, item, value) : kFailure;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROC_AMP(std::uint32_t handle,
                                                                   std::uint8_t* brightness,
                                                                   std::uint8_t* contrast,
                                                                   std::uint8_t* hue,
                                                                   std::uint8_t* saturation) {
  BenchedBox* box = Box();
  if (box == nullptr) return kFailure;
  ProcAmpBytes picture = {*brightness, *contrast, *hue, *saturation};
  const int result = box->GetKiraboxProcAmp(handle, picture);
  *brightness = picture.brightness;
  *contrast = picture.contrast;
  *hue = picture.hue;
  *saturation = picture.saturation;
  return result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_VIDEO_PROC_AMP(std::uint32_t handle,
                                                                 std::uint32_t group,
                                                                 std::uint32_t control,
                                                                 std::uint32_t* out) {
  BenchedBox* box = Box();
  if (box == nullptr) return kFailure;
  WordBuffer answer = {*out, 0};
  const int result = box->GetVideoProcAmp(handle, group, control, answer);
  *out = answer[0];
  return result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_VIDEO_PROC_AMP(std::uint32_t handle,
                                                                 std::uint32_t group,
                                                                 std::uint32_t control,
                                                                 std::uint32_t value) {
  BenchedBox* box = Box();
  return box != nullptr ? box->SetVideoProcAmp(handle, group, control, value) : kFailure;
}
