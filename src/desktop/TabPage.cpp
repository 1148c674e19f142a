#include "desktop/TabPage.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QTextEdit>
#include <QVBoxLayout>

#include "desktop/ControlViews.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"
#include "desktop/SpinArrows.h"
#include "desktop/WrapLabel.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

/// The text that explains an action. It is there to be read: it takes no keyboard, and scrolls if
/// it is long.
QTextEdit* DescriptionText() {
  auto* text = new QTextEdit;
  text->setReadOnly(true);
  text->setFocusPolicy(Qt::NoFocus);
  text->setTextInteractionFlags(Qt::NoTextInteraction);
  text->setFrameShape(QFrame::NoFrame);
  text->viewport()->setAutoFillBackground(false);
  const QFontMetrics metrics = text->fontMetrics();
  text->setMinimumSize(metrics.averageCharWidth() * 38, metrics.height() * 4);
  return text;
}

}  // namespace

TabPage::TabPage(frmMain& form, int index, ControlViews& views, QWidget* parent) : QWidget(parent) {
  auto* about = new WrapLabel;
  auto* grid = new GridView(At(form.gridKeyMap, index));
  auto* keyLabel = new QLabel;
  auto* key = new KeyEdit(At(form.txtKeyAssignment, index));
  auto* keyNote = new WrapLabel;
  auto* dontVoice = new QCheckBox;
  auto* orderFrame = new QGroupBox;
  auto* order = new SpinArrows;
  auto* descriptionFrame = new QGroupBox;
  auto* description = DescriptionText();

  auto* orderRow = new QHBoxLayout(orderFrame);
  orderRow->setContentsMargins(8, 4, 8, 4);
  orderRow->addWidget(order);
  orderRow->addStretch();
  auto* descriptionColumn = new QVBoxLayout(descriptionFrame);
  descriptionColumn->addWidget(description);

  auto* keyColumn = new QVBoxLayout;
  keyColumn->setSpacing(4);
  keyColumn->addWidget(keyLabel);
  keyColumn->addWidget(key, 0, Qt::AlignLeft);  // a key is short, and so is its box
  keyColumn->addWidget(keyNote);

  auto* edits = new QVBoxLayout;
  edits->setSpacing(14);
  edits->addLayout(keyColumn);
  edits->addWidget(dontVoice);
  edits->addWidget(orderFrame);
  edits->addWidget(descriptionFrame, 1);

  auto* columns = new QHBoxLayout;
  columns->setSpacing(16);
  grid->setMinimumWidth(fontMetrics().averageCharWidth() * 26);
  columns->addWidget(grid, 1);
  columns->addLayout(edits);

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
}

}  // namespace dialwright
