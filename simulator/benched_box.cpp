#include "simulator/benched_box.h"

#include <algorithm>

#include "catalogue/codecs.h"
#include "simulator/box_control.h"

namespace panelora::simulator {

namespace {

constexpr int kFailure = 0;

bool IsWrite(Call::Operation operation) { return Call{.operation = operation}.IsWrite(); }

bool IsAt(const Address& at, const Entry& entry) {
  // One call reads all picture values: it is a call of each of them.
  if (entry.operation == Call::Operation::kGetPicture) return at.kind == Address::Kind::kProcAmp;
  if (at.number != entry.item) return false;
  switch (entry.operation) {
    case Call::Operation::kGetBlock:
    case Call::Operation::kSetBlock:
      return at.kind == Address::Kind::kBlock && at.sub == entry.sub;
    case Call::Operation::kGetWord:
    case Call::Operation::kSetWord:
      return at.kind == Address::Kind::kWord;
    case Call::Operation::kGetProcAmp:
    case Call::Operation::kSetProcAmp:
      return at.kind == Address::Kind::kProcAmp;
    default:
      return false;
  }
}

}  // namespace

BenchedBox::BenchedBox(SharedBox& theShared, BoxHost& theHost, By theCaller)
    : shared(theShared),
      host(theHost),
      caller(theCaller),
      box(theShared.box, [this] { return host.Milliseconds(); }) {}

BenchedBox::Made BenchedBox::Make(const Call& call, DeviceHandle handle) {
  Made made{EntryOf(call), 1};
  Entry& entry = made;
  entry.result = kFailure;
  entry.time = host.Time();
  entry.by = caller;
  entry.process = host.Process();
  const std::uint64_t begin = host.Microseconds();
  const auto addEntry = [&] {
    entry.duration = static_cast<std::uint32_t>(host.Microseconds() - begin);
    Add(shared.journal, entry);
  };
  std::uint32_t latency = 0;
  {
    const BoxLock lock(host);
    if (!lock) return made;
    box.Mend();
    Answer(entry, handle);
    const bool isWord = entry.operation == Call::Operation::kGetWord;
    if (isWord && box.HasTwoWords(entry.item)) made.wordCount = 2;
    latency = shared.faults.latency;
    if (latency == 0) addEntry();
  }
  if (latency != 0) {  // nobody else waits with this call
    host.Sleep(latency);
    const BoxLock lock(host);
    if (lock) addEntry();
  }
  return made;
}

void BenchedBox::Answer(Entry& entry, DeviceHandle handle) {
  Faults& faults = shared.faults;
  const bool isWrite = IsWrite(entry.operation);
  if (isWrite && faults.vanishOnWrite) {
    faults.vanishOnWrite = false;
    box.SetPresent(false);
  }
  if (faults.cutUntil != 0 && host.Milliseconds() >= faults.cutUntil) faults.cutUntil = 0;
  if (!box.IsPresent() || faults.cutUntil != 0) return;
  if (!GoesWrong(entry)) {
    if (!AskReplay(entry)) AskBox(entry, handle);
    return;
  }
  switch (faults.answer) {
    case Faults::Answer::kFailure:
      break;
    case Faults::Answer::kResult:
      AskBox(entry, handle);
      entry.result = faults.result;
      break;
    case Faults::Answer::kRandom:
      if (!isWrite) FillAtRandom(entry);
      entry.result = kSuccess;
      break;
  }
}

bool BenchedBox::GoesWrong(const Entry& entry) {
  Faults& faults = shared.faults;
  const bool isOpen = entry.operation == Call::Operation::kOpen;
  const bool kindIsMeant = isOpen                     ? faults.opens
                           : IsWrite(entry.operation) ? faults.writes
                                                      : faults.reads;
  if (faults.every == 0 || !kindIsMeant) return false;
  if (faults.oneAddress && !IsAt(faults.address, entry)) return false;
  return ++faults.meant % faults.every == 0;
}

// Xorshift: the same bytes after the same beginning.
void BenchedBox::FillAtRandom(Entry& entry) {
  const auto next = [&] {
    std::uint64_t& state = shared.faults.random;
    if (state == 0) state = 0x9E3779B97F4A7C15U;
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    return state;
  };
  const bool isPicture = entry.operation == Call::Operation::kGetPicture;
  entry.byteCount = isPicture ? std::uint32_t{kPictureBytes} : entry.length;
  for (std::uint32_t i = 0; i < entry.byteCount; ++i) {
    entry.bytes[i] = static_cast<std::uint8_t>(next());
  }
  for (std::uint32_t& word : entry.words) word = static_cast<std::uint32_t>(next());
}

void BenchedBox::AskBox(Entry& entry, DeviceHandle handle) {
  BlockBuffer bytes{};
  switch (entry.operation) {
    case Call::Operation::kOpen:
      entry.words[0] = box.Open(entry.item);
      entry.result = entry.words[0] != kNoBox ? kSuccess : kFailure;
      break;
    case Call::Operation::kGetBlock: {
      const auto property = static_cast<std::uint8_t>(entry.item);
      entry.result = box.GetKiraboxProperty(handle, property, entry.sub, entry.length, bytes);
      if (shared.faults.fillsWhatWasAsked && property != kIdentityBlock.number) bytes.fill(0xFF);
      if (entry.result != kSuccess) break;
      entry.bytes = bytes;
      entry.byteCount = entry.length;
      break;
    }
    case Call::Operation::kSetBlock:
      bytes = entry.bytes;
      entry.result = box.SetKiraboxProperty(handle, static_cast<std::uint8_t>(entry.item),
                                            entry.sub, entry.length, bytes);
      break;
    case Call::Operation::kGetWord:
      entry.result = box.GetBoxProperty(handle, entry.group, entry.item, entry.words);
      break;
    case Call::Operation::kSetWord:
      entry.result = box.SetBoxProperty(handle, entry.group, entry.item, entry.words[0]);
      break;
    case Call::Operation::kGetPicture: {
      ProcAmpBytes picture;
      entry.result = box.GetKiraboxProcAmp(handle, picture);
      if (entry.result != kSuccess) break;
      const std::array<std::uint8_t, kPictureBytes> told = {picture.brightness, picture.contrast,
                                                            picture.hue, picture.saturation};
      std::copy(told.begin(), told.end(), entry.bytes.begin());
      entry.byteCount = kPictureBytes;
      break;
    }
    case Call::Operation::kGetProcAmp:
      entry.result = box.GetVideoProcAmp(handle, entry.group, entry.item, entry.words);
      break;
    case Call::Operation::kSetProcAmp:
      entry.result = box.SetVideoProcAmp(handle, entry.group, entry.item, entry.words[0]);
      break;
  }
}

// False when there is no replay, or the recorded box was not asked that.
bool BenchedBox::AskReplay(Entry& entry) {
  Replay& replay = shared.replay;
  const std::size_t count = std::min<std::size_t>(replay.questionCount, Replay::kQuestions);
  const auto end = replay.questions.begin() + static_cast<std::ptrdiff_t>(count);
  const auto found = std::find_if(replay.questions.begin(), end, [&](const auto& question) {
    return question.operation == entry.operation && question.item == entry.item &&
           question.sub == entry.sub && question.length == entry.length &&
           question.group == entry.group;
  });
  if (found == end || found->current >= Replay::kAnswers) return false;
  Replay::Answer& answer = replay.answers[found->current];
  entry.result = answer.result;
  if (!IsWrite(entry.operation)) {
    entry.words = answer.words;
    entry.bytes = answer.bytes;
    entry.byteCount = answer.byteCount;
  }
  if (answer.left > 1) {
    --answer.left;
  } else if (answer.next < replay.answerCount) {
    found->current = answer.next;
  }
  return true;
}

DeviceHandle BenchedBox::Open(std::uint32_t mode) {
  const Entry made = Make(Call::Open(mode), kNoBox);
  return made.result == kSuccess ? made.words[0] : kNoBox;
}

int BenchedBox::GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                   std::uint8_t length, BlockBuffer& out) {
  const Entry made = Make(Call::GetBlock(property, sub, length), handle);
  std::copy_n(made.bytes.begin(), std::min<std::size_t>(made.byteCount, length), out.begin());
  return made.result;
}

int BenchedBox::SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                   std::uint8_t length, const BlockBuffer& bytes) {
  return Make(Call::SetBlock(property, sub, length, bytes), handle).result;
}

int BenchedBox::GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                               WordBuffer& out) {
  const Entry made = Make(Call::GetWord(group, item), handle);
  if (made.result != kFailure) out = made.words;
  return made.result;
}

BenchedBox::WordAnswer BenchedBox::ReadWords(DeviceHandle handle, std::uint32_t group,
                                             std::uint32_t item) {
  const Made made = Make(Call::GetWord(group, item), handle);
  return {made.result, made.result != kFailure ? made.wordCount : 0, made.words};
}

int BenchedBox::SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                               std::uint32_t value) {
  return Make(Call::SetWord(group, item, value), handle).result;
}

int BenchedBox::GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) {
  const Entry made = Make(Call::GetPicture(), handle);
  if (made.byteCount == kPictureBytes) {
    out = {made.bytes[0], made.bytes[1], made.bytes[2], made.bytes[3]};
  }
  return made.result;
}

int BenchedBox::GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                WordBuffer& out) {
  const Entry made = Make(Call::GetProcAmp(group, control), handle);
  if (made.result != kFailure) out[0] = made.words[0];
  return made.result;
}

int BenchedBox::SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                std::uint32_t value) {
  return Make(Call::SetProcAmp(group, control, value), handle).result;
}

}  // namespace panelora::simulator
