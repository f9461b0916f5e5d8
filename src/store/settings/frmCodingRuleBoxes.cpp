#include "store/settings/frmCodingRuleBoxes.h"

#include <QBoxLayout>

#include "ui/Layout.h"

namespace zelkor {
CodingRuleBoxes::CodingRuleBoxes(const std::array<QLineEdit*, kLevels>& boxes,
                                 const std::array<UpDown*, kLevels>& spinners, QLabel* sum)
    : boxes_(boxes), spinners_(spinners), sum_(sum) {
  for (std::size_t i = 0; i < kLevels; ++i) {
    numberBox(boxes_[i]);
    spinners_[i]->setBuddy(boxes_[i]);
    QObject::connect(spinners_[i], &UpDown::valueChanged, sum_, [this] { refresh(); });
  }
}

void CodingRuleBoxes::show(const CodingRuleLengths& rule) {
  for (UpDown* spinner : spinners_) spinner->setRange(0, CodingRuleLengths::most);
  for (std::size_t i = 0; i < kLevels; ++i) spinners_[i]->setValue(rule.lengths[i]);
  refresh();
}

CodingRuleLengths CodingRuleBoxes::rule() const {
  CodingRuleLengths rule;
  for (std::size_t i = 0; i < kLevels; ++i) rule.lengths[i] = spinners_[i]->value();
  return rule;
}

void CodingRuleBoxes::refresh() {
  const CodingRuleLengths shown = rule();
  for (std::size_t i = 0; i < kLevels; ++i) spinners_[i]->setRange(0, shown.maximumOf(i));
  sum_->setText(QString::number(shown.sum()));
}

QLayout* CodingRuleBoxes::layout() const {
  auto* lengths = layout::row({new QLabel("编码长度：")});
  for (std::size_t i = 0; i < kLevels; ++i) {
    const QString caption = QString("第%1级").arg(i + 1);
    lengths->addLayout(layout::captioned(caption.toUtf8().constData(), spinnerPair(boxes_[i], spinners_[i])));
    lengths->addSpacing(8);
  }
  lengths->addWidget(new QLabel("总长度："));
  lengths->addWidget(sum_);
  lengths->addStretch(1);
  return lengths;
}

}  // namespace zelkor
