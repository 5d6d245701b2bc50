// The random operator: chooses the next step by what can be done.
#pragma once

#include <cstdint>
#include <random>

#include "tests/fuzz/fuzz_panel.h"
#include "tests/fuzz/step.h"

namespace panelora::fuzz {

// Random numbers without end.
class RandomChoices final : public Choices {
 public:
  explicit RandomChoices(std::uint32_t seed) : random(seed) {}
  int Below(int bound) override {
    return static_cast<int>(random() % static_cast<std::uint32_t>(bound));
  }
  bool IsEmpty() const override { return false; }

 private:
  std::mt19937 random;
};

// What a fuzzer gives: a byte for a choice of up to 256, two for more; 0 when there are no more.
class ByteChoices final : public Choices {
 public:
  ByteChoices(const std::uint8_t* data, std::size_t size) : bytes(data), left(size) {}
  int Below(int bound) override;
  bool IsEmpty() const override { return left == 0; }

 private:
  const std::uint8_t* bytes;
  std::size_t left;
};

class Operator {
 public:
  explicit Operator(Choices& theChoices) : choices(theChoices) {}

  Step Choose(FuzzPanel& panel);

 private:
  void ReplugAsAnother();

  Choices& choices;
  Steps planned;  // in reverse
};

// At most so many steps on a new panel; the first breach, if there is one. The steps that were done
// are in `done`.
std::optional<Breach> Operate(Choices& choices, int steps, Steps& done);

}  // namespace panelora::fuzz
