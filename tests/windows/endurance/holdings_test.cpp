// What counts the program's handles sees each kind of them come and go.
#include "tests/support/holdings.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

namespace panelora::testing {
namespace {

class HoldingsTest : public ::testing::Test {
 protected:
  HoldingsTest() { CountHoldings(desk); }

  // `made` is one more of the kind, which `dropped` takes back.
  void ExpectSeen(const std::string& kind, const std::function<void()>& made,
                  const std::function<void()>& dropped) {
    Holdings before = CountHoldings(desk);
    made();
    Holdings with = CountHoldings(desk);
    EXPECT_EQ(with[kind], before[kind] + 1) << kind;
    dropped();
    Holdings after = CountHoldings(desk);
    EXPECT_EQ(after[kind], before[kind]) << kind;
    if (!kGdiKinds.contains(kind) || with[kAllGdi] == 0) return;  // 32-bit Wine does not tell
    EXPECT_EQ(with[kAllGdi], before[kAllGdi] + 1) << kind;
    EXPECT_EQ(after[kAllGdi], before[kAllGdi]) << kind;
  }

  static constexpr char kAllGdi[] = "GDI objects of the process";
  static inline const std::set<std::string> kGdiKinds = {"fonts", "brushes", "pens", "bitmaps",
                                                         "regions"};

  Desk desk;
};

TEST_F(HoldingsTest, SeesEveryKindComeAndGo) {
  HGDIOBJ object = nullptr;
  const auto drop = [&] { DeleteObject(object); };
  ExpectSeen(
      "fonts", [&] { object = CreateFontA(20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"); },
      drop);
  ExpectSeen(
      "brushes", [&] { object = CreateSolidBrush(RGB(1, 2, 3)); }, drop);
  ExpectSeen(
      "pens", [&] { object = CreatePen(PS_SOLID, 3, RGB(1, 2, 3)); }, drop);
  const RECT place = {0, 0, 9, 9};
  ExpectSeen(
      "regions", [&] { object = CreateRectRgnIndirect(&place); }, drop);
  ExpectSeen(
      "bitmaps",
      [&] {
        object = LoadImageA(GetModuleHandleA(nullptr), "NULL_BOX", IMAGE_BITMAP, 0, 0,
                            LR_CREATEDIBSECTION);
      },
      drop);
  HDC context = nullptr;
  ExpectSeen(
      "device contexts", [&] { context = CreateCompatibleDC(nullptr); },
      [&] { DeleteDC(context); });
  const auto makeWindow = [] {
    return CreateWindowExA(0, "Static", "", WS_OVERLAPPEDWINDOW, 0, 0, 9, 9, nullptr, nullptr,
                           nullptr, nullptr);
  };
  const HWND window = makeWindow();  // the first one brings others with it
  HWND second = nullptr;
  ExpectSeen(
      "windows", [&] { second = makeWindow(); }, [&] { DestroyWindow(second); });
  ExpectSeen(
      "timers", [&] { SetTimer(window, 7, 60000, nullptr); }, [&] { KillTimer(window, 7); });
  ExpectSeen(
      "device contexts", [&] { context = GetDC(window); }, [&] { ReleaseDC(window, context); });
  ExpectSeen(
      "menus", [&] { GetSystemMenu(window, FALSE); }, [&] { DestroyWindow(window); });
}

}  // namespace
}  // namespace panelora::testing
