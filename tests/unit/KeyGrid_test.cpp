#include "controls/KeyGrid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dialwright {

namespace {

std::vector<std::string> column(const KeyGrid& grid, Column which) {
  std::vector<std::string> texts;
  for (int row = 1; row < grid.Rows(); ++row) texts.push_back(grid.Text(row, which));
  return texts;
}

/// A grid whose rows are named a, b, c and so on and bear these orders.
struct Filled : KeyGrid {
  explicit Filled(const std::vector<std::string>& orders) {
    for (std::size_t i = 0; i < orders.size(); ++i) {
      AddItem(std::string(1, static_cast<char>('a' + i)));
      SetText(static_cast<int>(i) + 1, Column::Order, orders[i]);
    }
    BeforeRowColChange = [this](int from, int, int to, int, bool&) {
      events += "before " + std::to_string(from) + " " + std::to_string(to) + "; ";
    };
    AfterRowColChange = [this](int from, int, int to, int) {
      events += "after " + std::to_string(from) + " " + std::to_string(to) + "; ";
    };
  }
  std::string events;
};

TEST(KeyGrid, SortsNumbersByValueThenTheEmptyOnes) {
  struct {
    std::vector<std::string> orders;
    std::string sorted;
  } const cases[] = {
      {{"30", "5", "7"}, "bca"},
      {{"", "10", "", "9"}, "dbac"},
      {{"99999", "", "100"}, "cab"},
      {{"2", "10", "1E1", " 10"}, "abcd"},
      {{"99999", "20", "99999", "10"}, "dbac"},
      {{"-1", "&HF", "3"}, "acb"},
      {{}, ""},
  };
  for (const auto& c : cases) {
    Filled grid(c.orders);
    grid.SortGeneric(Column::Order);
    std::string sorted;
    for (const std::string& name : column(grid, Column::Action)) sorted += name;
    EXPECT_EQ(sorted, c.sorted);
    EXPECT_EQ(grid.events, "");
  }
}

TEST(KeyGrid, TellsOnlyOfAnotherRow) {
  Filled grid({"1", "2", "3"});
  for (const int row : {2, 2, 0, 4, -1, 3}) grid.SetRow(row);
  EXPECT_EQ(grid.events, "before 0 2; after 0 2; before 2 3; after 2 3; ");
  grid.events.clear();
  grid.MoveRow(3, 1);
  grid.MoveRow(1, 9);
  grid.CutToHeading();
  EXPECT_EQ(grid.events, "");
  EXPECT_FALSE(grid.HasRowInHand());
}

TEST(KeyGrid, MovesARowPastThoseBetween) {
  struct {
    int from, place;
    std::string result;
  } const cases[] = {
      {1, 2, "bacd"}, {1, 4, "bcda"}, {4, 1, "dabc"}, {3, 3, "abcd"}, {0, 2, "abcd"}};
  for (const auto& c : cases) {
    Filled grid({"1", "2", "3", "4"});
    grid.SetRow(2);
    grid.MoveRow(c.from, c.place);
    std::string result;
    for (const std::string& name : column(grid, Column::Action)) result += name;
    EXPECT_EQ(result, c.result);
    EXPECT_EQ(grid.Row(), 2);
  }
}

}  // namespace

}  // namespace dialwright
