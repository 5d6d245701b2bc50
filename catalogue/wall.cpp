#include "catalogue/wall.h"

namespace panelora::wall {

namespace {

constexpr Store kStores[] = {
    {{18, 20, 30, 32, 33, 43}, Word(8), Word(9)},
    {{37, 38, 39, 40, 46, 47, 48, 49}, Block(16, 20), {}},
    {{14, 36}, Block(8, 20), {}},
    {{17, 35}, Word(10), Word(11)},
};

}  // namespace

const Store* Find(std::uint8_t boxType) { return FirstOf(kStores, boxType); }

}  // namespace panelora::wall
