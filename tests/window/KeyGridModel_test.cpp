#include "desktop/KeyGridModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace dialwright {

namespace {

TEST(KeyGridModel, FollowsTheGridAtEachRefreshAndNotBefore) {
  KeyGrid grid;
  KeyGridModel model(grid);
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  const auto cells = [&] {
    QString text;
    for (int row = 0; row < model.rowCount(); ++row)
      for (int column = 0; column < model.columnCount(); ++column)
        text += model.index(row, column).data().toString() + "|";
    return text.toStdString();
  };
  grid.AddItem("One");
  grid.AddItem("Two");
  grid.SetText(2, Column::KeyAssignment, "22");
  grid.SetText(2, Column::ActionToken, "TOKEN");
  EXPECT_EQ(cells(), "");
  EXPECT_TRUE(model.refresh());
  EXPECT_EQ(cells(), "One||Two|22|");
  EXPECT_FALSE(model.refresh());

  grid.MoveRow(2, 1);
  grid.SetText(0, Column::Action, "Head");
  EXPECT_TRUE(model.refresh());
  EXPECT_EQ(cells(), "Two|22|One||");
  EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Head");

  grid.CutToHeading();
  EXPECT_EQ(cells(), "Two|22|One||");
  model.refresh();
  EXPECT_EQ(model.rowCount(), 0);
}

}  // namespace

}  // namespace dialwright
