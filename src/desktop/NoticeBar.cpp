#include "desktop/NoticeBar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/WrapLabel.h"

namespace dialwright {

NoticeBar::NoticeBar(const QString& name) : rows(new QVBoxLayout(this)) {
  setObjectName(name);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(4);
  hide();
}

void NoticeBar::Show(std::vector<Notice> wanted) {
  const bool isSame = std::ranges::equal(wanted, shown, [](const Notice& a, const Notice& b) {
    return a.text == b.text && a.button == b.button;
  });
  if (isSame) return;
  while (QLayoutItem* item = rows->takeAt(0)) {
    // Its button may be what has led here.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  shown = std::move(wanted);
  for (const Notice& notice : shown) AddRow(notice);
  setVisible(!shown.empty());
}

void NoticeBar::AddRow(const Notice& notice) {
  auto* frame = new QFrame;
  frame->setFrameShape(QFrame::StyledPanel);
  frame->setBackgroundRole(QPalette::ToolTipBase);
  frame->setAutoFillBackground(true);
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(8, 4, 8, 4);
  auto* sign = new QLabel;
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
  auto* text = new WrapLabel;
  text->setForegroundRole(QPalette::ToolTipText);
  text->setTextFormat(Qt::PlainText);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->setFocusPolicy(Qt::NoFocus);
  text->setText(notice.text);
  text->setAccessibleName(notice.text);
  row->addWidget(sign, 0, Qt::AlignTop);
  row->addWidget(text, 1, Qt::AlignVCenter);
  if (!notice.button.isEmpty()) {
    auto* button = new QPushButton(notice.button);
    // The keyboard stays in the form; the button has a key of its own.
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, notice.pressed);
    row->addWidget(button, 0, Qt::AlignVCenter);
  }
  rows->addWidget(frame);
}

}  // namespace dialwright
