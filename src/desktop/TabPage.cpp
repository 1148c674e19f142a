#include "desktop/TabPage.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QTextEdit>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "beside/Announced.h"
#include "desktop/ControlViews.h"
#include "desktop/FindingLine.h"
#include "desktop/GridView.h"
#include "desktop/HeadingFont.h"
#include "desktop/KeyEdit.h"
#include "desktop/NumberedText.h"
#include "desktop/PaneScroll.h"
#include "desktop/QtText.h"
#include "desktop/SpinArrows.h"
#include "desktop/Spoken.h"
#include "desktop/WrapLabel.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

/// The text that explains an action. It is there to be read, scrolled and copied.
class DescriptionText : public QTextEdit {
 public:
  DescriptionText() {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
  }

  // It takes what room there is, and scrolls when that is little.
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    return {fontMetrics().averageCharWidth() * 26, fontMetrics().lineSpacing() * 4};
  }
};

/// The action that the boxes edit, in a place of two lines, so that nothing below moves.
class ActionHeading : public WrapLabel {
 public:
  ActionHeading() { setAlignment(Qt::AlignLeft | Qt::AlignVCenter); }

  int heightForWidth(int width) const override {
    return std::max(WrapLabel::heightForWidth(width), 2 * fontMetrics().lineSpacing());
  }

  void TakeFontOf(const QWidget& page) {
    if (const QFont wanted = HeadingFont(page.font()); wanted != font()) setFont(wanted);
  }
};

/// A text that is quieter than what it is about.
QLabel* QuietLabel() {
  auto* label = new WrapLabel;
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QString RowInHand(const KeyGrid& grid) {
  return grid.HasRowInHand() ? ToQt(grid.Text(grid.Row(), Column::Action)) : QString();
}

/// How many keys the box takes; empty as long as it is not limited.
QString Room(frmMain& form, const EditBox& box) {
  if (box.MaxLength == 0) return {};
  if (box.MaxLength == 1) return NumberedText(form.program, 1300);
  return NumberedText(form.program, 1301).arg(box.MaxLength());
}

}  // namespace

TabPage::TabPage(frmMain& theForm, int theIndex, ControlViews& theViews)
    : form(theForm), index(theIndex), views(theViews) {}

void TabPage::Build() {
  if (layout() != nullptr) return;
  auto* about = new WrapLabel;
  auto* grid = new GridView(At(form.gridKeyMap, index), index);
  auto* heading = new ActionHeading;
  auto* keyLabel = new QLabel;
  auto* key = new KeyEdit(At(form.txtKeyAssignment, index));
  auto* room = new QLabel;
  auto* keyNote = new WrapLabel;
  auto* dontVoice = new QCheckBox;
  auto* orderFrame = new QGroupBox;
  auto* order = new SpinArrows;
  auto* silence = QuietLabel();
  auto* descriptionFrame = new QGroupBox;
  auto* description = new DescriptionText;
  heading->setObjectName(QString("editedAction(%1)").arg(index));
  room->setObjectName(QString("keyRoom(%1)").arg(index));
  silence->setObjectName(QString("silentMenu(%1)").arg(index));
  if (AnnouncesActions(index)) silence->hide();

  auto* orderRow = new QHBoxLayout(orderFrame);
  orderRow->setContentsMargins(8, 2, 8, 2);
  orderRow->addWidget(order);
  orderRow->addStretch();
  auto* descriptionColumn = new QVBoxLayout(descriptionFrame);
  descriptionColumn->setContentsMargins(6, 4, 6, 4);
  descriptionColumn->addWidget(description);

  auto* keyRow = new QHBoxLayout;
  keyRow->addWidget(key);  // a key is short, and so is its box
  keyRow->addWidget(room);
  keyRow->addStretch();
  auto* keyColumn = new QVBoxLayout;
  keyColumn->setSpacing(4);
  keyColumn->addWidget(keyLabel);
  keyColumn->addLayout(keyRow);
  keyColumn->addWidget(keyNote);
  keyColumn->addWidget(new FindingLine(form, index));

  auto* pane = new QWidget;
  auto* edits = new QVBoxLayout(pane);
  edits->setContentsMargins(0, 0, 4, 0);
  edits->setSpacing(10);
  edits->addWidget(heading);
  edits->addLayout(keyColumn);
  edits->addWidget(dontVoice);
  edits->addWidget(orderFrame);
  edits->addWidget(silence);
  edits->addWidget(descriptionFrame, 1);

  auto* columns = new QHBoxLayout;
  columns->setSpacing(16);
  columns->addWidget(grid, 3);
  auto* scroll = new PaneScroll(*pane, 72);  // longer lines read badly
  columns->addWidget(scroll, 2);

  auto* page = new QVBoxLayout(this);
  page->setSpacing(10);
  page->addWidget(about);
  page->addLayout(columns, 1);

  views.Join(At(form.LabelTabDescription, index), *about);
  views.Join(At(form.gridKeyMap, index), *grid);
  views.Join(At(form.labelKeyMap, index), *keyLabel);
  views.Join(At(form.txtKeyAssignment, index), *key);
  views.Join(At(form.lblKeyMap, index), *keyNote);
  views.Join(At(form.chkDontVoiceAction, index), *dontVoice);
  views.Join(At(form.frameMenuOrder, index), *orderFrame);
  views.Join(At(form.UpDownMenuOrder, index), *order);
  views.Join(At(form.frameDescription, index), *descriptionFrame);
  views.Join(At(form.txtDescription, index), *description);
  views.Name(At(form.txtKeyAssignment, index), *keyLabel);

  key->tellFull = [this, key] {
    QApplication::beep();
    QToolTip::showText(
        key->mapToGlobal(key->rect().bottomLeft()),
        NumberedText(form.program, 1302) + " " + Room(form, At(form.txtKeyAssignment, index)), key);
  };
  views.Show([grid, heading, key, room, order, silence, description, this] {
    const QString action = RowInHand(At(form.gridKeyMap, index));
    const QString explained = LinesToQt(At(form.txtDescription, index).Caption());
    const auto text = [this](int number) { return NumberedText(form.program, number); };
    heading->TakeFontOf(*this);
    heading->setText(action);
    room->setText(Room(form, At(form.txtKeyAssignment, index)));
    silence->setText(text(1303));
    order->SetNames(text(1304), text(1305));
    SetSpoken(*grid, ToQt(form.SSTab1.TabCaption(index)));
    const QString label = Spoken(ToQt(At(form.labelKeyMap, index).Caption));
    SetSpoken(*key, action.isEmpty() ? label : action + ", " + label,
              ToQt(At(form.lblKeyMap, index).Caption) + "\n" + room->text() + "\n" + explained);
    SetSpoken(*order, ToQt(At(form.frameMenuOrder, index).Caption), action);
    SetSpoken(*description, ToQt(At(form.frameDescription, index).Caption));
    SetSpoken(*this, ToQt(form.SSTab1.TabCaption(index)));
  });
}

}  // namespace dialwright
