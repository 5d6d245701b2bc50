#include "simulator/box_control.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/information.h"

namespace panelora::simulator {

namespace {

constexpr std::size_t kWordBytes = 4;

// What a format's scan is called by those that tell it.
constexpr std::uint8_t kBigInterlaced = 1;
constexpr std::uint8_t kBigProgressive = 0;
constexpr std::uint8_t kLittleInterlaced = 0;
constexpr std::uint8_t kLittleProgressive = 1;

void StoreWords(WordBuffer& words, std::span<const std::uint8_t> bytes) {
  words = {};
  for (std::size_t i = 0; i < std::min(bytes.size(), 2 * kWordBytes); ++i) {
    words[i / kWordBytes] |= static_cast<std::uint32_t>(bytes[i]) << (8 * (i % kWordBytes));
  }
}

// Whether the box tells there what an input receives.
bool IsInput(const BoxMemory& box, const Address& at) {
  using information::Tells;
  const auto rows = information::Rows();
  return std::any_of(rows.begin(), rows.end(), [&](const information::Told& row) {
    const Address told = information::AddressOf(row, box.identity, box.firmware);
    const bool isFormat = row.tells == Tells::kBigFormat || row.tells == Tells::kLittleFormat ||
                          row.tells == Tells::kFormatCode;
    return isFormat && told.kind == at.kind && told.number == at.number;
  });
}

}  // namespace

void Add(Journal& journal, Entry& entry) {
  entry.number = journal.last + 1;
  journal.entries[entry.number % Journal::kHeld] = entry;
  journal.last = entry.number;
}

void MakeBox(SharedBox& shared, const Identity& identity, std::uint32_t firmware) {
  shared.layout = SharedBox::kLayout;
  shared.size = sizeof shared;
  shared.faults = {};
  shared.change = {};
  shared.replay.questionCount = shared.replay.answerCount = 0;
  shared.journal.last = 0;
  shared.box.present = true;
  BoxModel(shared.box, {}).Become(identity, firmware);
  shared.magic = SharedBox::kMagic;
}

std::unique_ptr<Replay> ReplayOf(std::span<const Call> calls) {
  auto replay = std::make_unique<Replay>();
  std::array<std::uint32_t, Replay::kQuestions> lastAnswer{};
  std::uint32_t& questions = replay->questionCount;
  std::uint32_t& answers = replay->answerCount;
  for (const Call& call : calls) {
    Entry entry = EntryOf(call);
    if (call.operation == Call::Operation::kOpen && call.Succeeded()) {
      entry.words[0] = BoxModel::kHandle;
    }
    const auto end = replay->questions.begin() + questions;
    const auto found = std::find_if(replay->questions.begin(), end, [&](const auto& each) {
      return each.operation == entry.operation && each.item == entry.item &&
             each.sub == entry.sub && each.length == entry.length && each.group == entry.group;
    });
    const auto which = static_cast<std::size_t>(found - replay->questions.begin());
    if (found != end) {
      Replay::Answer& before = replay->answers[lastAnswer[which]];
      const bool isWrite = call.IsWrite();
      if (before.result == entry.result &&
          (isWrite || (before.words == entry.words && before.byteCount == entry.byteCount &&
                       before.bytes == entry.bytes))) {
        ++before.left;
        continue;
      }
    }
    if (answers == Replay::kAnswers || (found == end && questions == Replay::kQuestions)) {
      return nullptr;
    }
    replay->answers[answers] = {entry.result, entry.words, entry.byteCount,
                                entry.bytes,  answers,     1};
    if (found == end) {
      replay->questions[questions++] = {entry.operation, entry.sub,  entry.length,
                                        entry.group,     entry.item, answers};
    } else {
      replay->answers[lastAnswer[which]].next = answers;
    }
    lastAnswer[which] = answers++;
  }
  return replay;
}

BoxControl::BoxControl(SharedBox& theShared, BoxHost& theHost, By theHand)
    : shared(theShared), host(theHost), hand(theHand) {}

bool BoxControl::Do(const std::function<bool(BoxModel&)>& what) {
  const BoxLock lock(host);
  if (!lock) return false;
  BoxModel box(shared.box, [this] { return host.Milliseconds(); });
  box.Mend();
  return what(box);
}

void BoxControl::NoteChange() {
  ++shared.change.count;
  shared.change.time = host.Time();
  shared.change.by = hand;
}

void BoxControl::NoteMaking() {
  NoteChange();
  shared.change.made = shared.journal.last;
}

std::optional<BoxControl::Look> BoxControl::LookAt() {
  std::optional<Look> look;
  Do([&](BoxModel& box) {
    const std::uint64_t cut = shared.faults.cutUntil;
    const bool isCut = cut != 0 && host.Milliseconds() < cut;
    look = Look{shared.box,
                shared.faults,
                shared.change,
                box.IsPresent() && !isCut,
                shared.replay.questionCount != 0,
                shared.journal.last};
    return true;
  });
  return look;
}

bool BoxControl::Plug(bool plugged) {
  return Do([&](BoxModel& box) {
    box.SetPresent(plugged);
    shared.faults.cutUntil = 0;
    return true;
  });
}

bool BoxControl::Cut(std::uint32_t milliseconds) {
  return Do([&](BoxModel&) {
    shared.faults.cutUntil = host.Milliseconds() + milliseconds;
    return true;
  });
}

bool BoxControl::Become(const Identity& identity, std::uint32_t firmware) {
  return Do([&](BoxModel& box) {
    shared.replay.questionCount = 0;
    box.Become(identity, firmware);
    NoteMaking();
    return true;
  });
}

bool BoxControl::Reset() {
  return Do([&](BoxModel& box) {
    shared.replay.questionCount = 0;
    box.Reset();
    NoteMaking();
    return true;
  });
}

bool BoxControl::SetFaults(const std::function<void(Faults&)>& change) {
  return Do([&](BoxModel&) {
    change(shared.faults);
    return true;
  });
}

bool BoxControl::SetInput(const VideoFormat& format, bool isInterlaced) {
  return Do([&](BoxModel& box) {
    bool told = false;
    const std::string name = format.width == 0 || format.height == 0
                                 ? ""
                                 : Format("%dx%d %d.%02d%s", format.width, format.height,
                                          format.rate, format.hundredths, isInterlaced ? "i" : "p");
    for (const information::Told& row : information::Rows()) {
      const Address at = information::AddressOf(row, shared.box.identity, shared.box.firmware);
      if (row.tells == information::Tells::kFormatCode && at.kind == Address::Kind::kWord) {
        const auto code = information::InputFormatCode(shared.box.identity.boxType, name);
        if (code) box.Word(at.number) = *code;
        told |= code.has_value();
      }
      if (at.kind != Address::Kind::kBlock) continue;
      const bool isBig = row.tells == information::Tells::kBigFormat;
      if (!isBig && row.tells != information::Tells::kLittleFormat) continue;
      VideoFormat kept = format;
      kept.scan = isBig ? (isInterlaced ? kBigInterlaced : kBigProgressive)
                        : (isInterlaced ? kLittleInterlaced : kLittleProgressive);
      const auto bytes = EncodeFormat(kept, isBig ? ByteOrder::kBig : ByteOrder::kLittle);
      KeptBlock& block = box.Block(at.number);
      const std::size_t wanted = row.inputs * kFormatBytes;
      if (block.size() < wanted) block.resize(wanted);
      for (std::size_t i = 0; i < row.inputs; ++i) {
        std::copy(bytes.begin(), bytes.end(), block.begin() + i * kFormatBytes);
      }
      told = true;
    }
    if (told) box.KeepInput();
    if (told) NoteChange();
    return told;
  });
}

bool BoxControl::Store(const Address& at, std::span<const std::uint8_t> bytes) {
  return Do([&](BoxModel& box) {
    Call write;
    switch (at.kind) {
      case Address::Kind::kBlock: {
        if (!BoxModel::CanHave(at.number, at.sub)) return false;
        BlockBuffer sent{};
        const std::size_t count = std::min(bytes.size(), KeptBlock::kMost);
        std::copy_n(bytes.begin(), count, sent.begin());
        box.Block(at.number, at.sub)
            .assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
        write = Call::SetBlock(at.number, at.sub, static_cast<std::uint8_t>(count), sent);
        break;
      }
      case Address::Kind::kWord: {
        WordBuffer& words = box.Word(at.number);
        StoreWords(words, bytes);
        write = Call::SetWord(kBoxGroup, at.number, words[0]);
        break;
      }
      case Address::Kind::kProcAmp: {
        std::uint8_t* value = PictureValue(shared.box.picture, at.number);
        if (value == nullptr || bytes.empty()) return false;
        *value = bytes[0];
        write = Call::SetProcAmp(kBoxGroup, at.number, bytes[0]);
        break;
      }
      case Address::Kind::kNone:
        return false;
    }
    if (IsInput(shared.box, at)) box.KeepInput();
    Entry entry = EntryOf(write);
    entry.result = kSuccess;
    entry.time = host.Time();
    entry.by = hand;
    entry.process = host.Process();
    Add(shared.journal, entry);
    return true;
  });
}

bool BoxControl::Load(const BoxMemory& box) {
  return Do([&](BoxModel& model) {
    shared.replay.questionCount = 0;
    model.Load(box);
    NoteMaking();
    return true;
  });
}

bool BoxControl::Play(const Replay& recorded) {
  return Do([&](BoxModel& box) {
    shared.replay = recorded;
    box.SetPresent(true);
    return true;
  });
}

std::optional<BoxControl::Calls> BoxControl::CallsFrom(std::uint64_t first) {
  std::optional<Calls> calls;
  Do([&](BoxModel&) {
    const Journal& journal = shared.journal;
    calls.emplace();
    const std::uint64_t oldest =
        journal.last > Journal::kHeld ? journal.last - Journal::kHeld + 1 : 1;
    const std::uint64_t begin = std::max({first, oldest, std::uint64_t{1}});
    if (first < begin && first != 0) calls->lost = begin - first;
    for (std::uint64_t number = begin; number <= journal.last; ++number) {
      calls->entries.push_back(journal.entries[number % Journal::kHeld]);
    }
    return true;
  });
  return calls;
}

std::vector<std::uint8_t> BytesAt(const BoxMemory& box, const Address& at) {
  switch (at.kind) {
    case Address::Kind::kBlock: {
      if (!BoxModel::CanHave(at.number, at.sub)) return {};
      const KeptBlock& block = at.sub == kNoSub ? box.blocks[at.number] : box.labels[at.sub - 1U];
      return {block.begin(), block.end()};
    }
    case Address::Kind::kWord: {
      const KeptWord& kept = box.words[at.number];
      std::vector<std::uint8_t> bytes;
      if (!kept.held) return bytes;
      for (const std::uint32_t word : kept.words) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
          bytes.push_back(static_cast<std::uint8_t>(word >> shift));
        }
      }
      return bytes;
    }
    case Address::Kind::kProcAmp: {
      ProcAmpBytes picture = box.picture;
      const std::uint8_t* value = PictureValue(picture, at.number);
      return value != nullptr ? std::vector<std::uint8_t>{*value} : std::vector<std::uint8_t>{};
    }
    case Address::Kind::kNone:
      break;
  }
  return {};
}

}  // namespace panelora::simulator
