// What the Display Mode page must show and send, written a second time and in another way: rows as
// strings of digits, rules case by case.
#pragma once

#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace panelora::testing {

struct ChannelModel {
  int boxType = 15;
  int brand = 0;
  bool nine = false;
  std::map<int, int> codeOfMode;  // what the box remembers

  int mode = 1;
  int main = 0;
  int sub = 0;
  int sub2 = 0;
  int code = 1;
  std::string modeName = "Mode 1";
  std::string names[3];

  using Key = std::tuple<int, int, int, int>;
  Key Numbers() const { return {mode, main, sub, sub2}; }

  void Take(int newMode) {
    mode = newMode;
    code = codeOfMode[mode];
    ShowMode();
    ShowByCode();
  }

  void PressMode() {
    ++mode;
    if (boxType == 51) {
      if (mode > 4) mode = 1;
    } else if (brand == 8) {
      if (mode == 5) mode = 9;
      if (mode > 9) mode = 1;
    } else if (mode > (nine ? 9 : 5)) {
      mode = 1;
    }
    ShowMode();
    code = codeOfMode[mode];
    if (boxType == 51 && code == 0) code = 1;
    ShowByCode();
  }

  void PressMain() {
    main = main % 4 + 1;
    if (mode == 6) {
      sub = Partner(main);
      if (main == sub2 || sub == sub2) AdjustPairSub2();
    } else if (mode == 7 || (brand == 12 && mode == 5)) {
      SetSubs({"", "23", "13", "12", "12"});
    } else if (brand == 12) {
      SetSubs({"", "23", "13", "41", "31"});
    } else {
      sub2 = 0;
      if (sub == main) sub = main == 1 ? 2 : 1;
    }
    ShowByNumbers();
  }

  void PressSub() {
    ++sub;
    if (mode == 6) {
      if (sub > 4) sub = 1;
      main = Partner(sub);
      if (main == sub2 || sub == sub2) AdjustPairSub2();
    } else if (mode == 7 || (brand == 12 && mode == 5)) {
      if (main == 1) SubRule(3, 2, 4);
      if (main == 2) {
        ++sub;
        SubRule(3, 1, 4);
      }
      if (main == 3) SubRule(2, 1, sub2 + 1);
      if (main == 4) SubRule(2, 1, 3);
    } else if (brand == 12 && mode == 4) {
      if (main == 1) SubRule(3, 2, 4);
      if (main == 2) {
        ++sub;
        if (sub == 2) sub = 3;
        SubRule(3, 1, 4);
      }
      if (main == 3) {
        if (sub == 2) sub = 4;
        SubRule(4, 1, sub2 + 1);
      }
      if (main == 4) {
        if (sub == 2) sub = 3;
        SubRule(3, 1, 2);
      }
    } else {
      while (true) {
        if (sub == main) ++sub;
        if (sub > 4) sub = 1;
        if (sub != main) break;
      }
    }
    ShowByNumbers();
  }

  void PressSub2() {
    ++sub2;
    if (mode == 6) {
      WrapPairSub2();
    } else if (mode == 7 || (brand == 12 && mode == 5)) {
      if (main == 1 || main == 2) Sub2Rule(4, 3, 4);
      if (main == 3) Sub2Rule(4, 2, 3);
      if (main == 4) Sub2Rule(3, 2, 3);
    } else if (brand == 12 && mode == 4) {
      if ((main == 1 || main == 2) && sub2 > 4) sub2 = 3;
      if ((main == 3 || main == 4) && sub2 >= 3) sub2 = 1;
    } else {
      if (main == sub) ++sub;
      if (sub2 > 4) sub2 = 1;
    }
    ShowByNumbers();
  }

 private:
  struct Row {
    int mode;
    int code;
    std::string numbers;  // main, sub, sub2
    std::string shown;
  };

  static int Partner(int number) { return (number - 1) / 2 * 4 + 3 - number; }

  void SetSubs(const std::vector<std::string>& byMain) {
    sub = byMain[static_cast<std::size_t>(main)][0] - '0';
    sub2 = byMain[static_cast<std::size_t>(main)][1] - '0';
  }
  void SubRule(int greatest, int first, int otherSub2) {
    if (sub > greatest) sub = first;
    if (sub2 == sub) sub2 = otherSub2;
  }
  void Sub2Rule(int greatest, int first, int other) {
    if (sub2 > greatest) sub2 = first;
    if (sub2 == sub) sub2 = other;
  }
  void AdjustPairSub2() {
    ++sub2;
    WrapPairSub2();
  }
  void WrapPairSub2() {
    if ((main == 1 || main == 2) && sub2 > 4) sub2 = 3;
    if ((main == 3 || main == 4) && sub2 > 2) sub2 = 1;
  }

  void ShowMode() {
    static const std::map<int, std::string> tabbed = {{51, "34"}, {15, "3456789"}, {13, "34589"}};
    const int named = brand == 8 && mode == 9 ? 5 : mode;
    modeName = "Mode " + std::to_string(named);
    const char digit = static_cast<char>('0' + mode);
    if (tabbed.at(boxType).find(digit) != std::string::npos) modeName += "\t\t\t";
  }

  static void Add(std::vector<Row>& rows, int mode, const std::string& numbers,
                  const std::string& shown) {
    std::istringstream left(numbers);
    std::istringstream right(shown);
    Row row{mode, 0, {}, {}};
    while (left >> row.numbers && right >> row.shown) {
      ++row.code;
      rows.push_back(row);
    }
  }

  const std::vector<Row>& Rows() const {
    static std::map<std::pair<int, int>, std::vector<Row>> tables;
    std::vector<Row>& rows = tables[{boxType, brand}];
    if (rows.empty()) rows = MakeRows();
    return rows;
  }

  std::vector<Row> MakeRows() const {
    const std::string one = "100 200 300 400";
    const std::string none = "000 000 000 000";
    const std::string two = "120 130 140 210 230 240 310 320 340 410 420 430";
    const std::string three = "123 124 134 213 214 234 312 314 324 412 413 423";
    std::vector<Row> rows;
    if (brand == 12 && boxType == 15) {
      const std::string four = "123 124 134 213 214 234 312 341 342 412 431 432";
      Add(rows, 1, one, one);
      Add(rows, 2, none, none);
      Add(rows, 3, one, one);
      Add(rows, 4, four, four);
      Add(rows, 5, three, three);
    }
    Add(rows, 1, one, one);
    Add(rows, 2, none, none);
    Add(rows, 3, one, one);
    if (boxType == 51) {
      Add(rows, 4, "120 130 140 230 240 210 340 310 320 410 420 430", two);
      return rows;
    }
    const std::string pairs = "123 124 213 214 341 342 431 432";
    Add(rows, 4, two, two);
    Add(rows, 5, one, one);
    Add(rows, 6, pairs, pairs);
    Add(rows, 7, three, three);
    Add(rows, 8, one, one);
    Add(rows, 9, two, two);
    return rows;
  }

  static std::string Name(char digit) {
    return digit == '0' ? std::string() : std::string("Channel ") + digit;
  }
  void ShowNames(const Row& row) {
    for (std::size_t i = 0; i < 3; ++i) names[i] = Name(row.shown[i]);
  }
  void ShowByCode() {
    for (const Row& row : Rows()) {
      if (row.mode != mode || row.code != code) continue;
      ShowNames(row);
      main = row.numbers[0] - '0';
      sub = row.numbers[1] - '0';
      sub2 = row.numbers[2] - '0';
      return;
    }
  }
  void ShowByNumbers() {
    const std::string wanted = std::to_string(main) + std::to_string(sub) + std::to_string(sub2);
    for (const Row& row : Rows()) {
      if (row.mode != mode || row.numbers != wanted) continue;
      ShowNames(row);
      code = row.code;
      return;
    }
  }
};

}  // namespace panelora::testing
