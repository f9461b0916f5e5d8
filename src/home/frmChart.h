#pragma once

#include <functional>
#include <optional>
#include <QString>
#include <QWidget>
#include <utility>
#include <vector>

#include "ui/FormHost.h"
#include "ui/SaveDialog.h"

namespace zelkor {

/// Amounts as bars under each other, or as a line over the months of a year. A click opens what they are
/// from; the menu keeps them as a picture or as the numbers behind it.
class frmChart final : public QWidget {
 public:
  enum class Kind { Bars, Line };
  struct Point {
    QString label;
    std::optional<double> amount;  // none: not yet
  };

  explicit frmChart(QWidget* parent = nullptr) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }

  void setTitle(const QString& title) { title_ = title; }
  /// What is said where there is nothing to show.
  void setEmptyText(const QString& text) { emptyText_ = text; }
  void show(Kind kind, std::vector<Point> points);
  /// Shows that nothing is known yet.
  void forget();
  /// What a click opens is told in the tip.
  void onOpened(const QString& what, std::function<void()> listener);
  /// Lets it be saved; where that fails a box says so.
  void saveThrough(FormHost& host) { host_ = &host; }

  /// The numbers, as a spreadsheet reads them.
  QString csv() const;

  QSize sizeHint() const override { return {240, 140}; }
  QSize minimumSizeHint() const override { return {180, 96}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void paintBars(QPainter& painter, QRect room) const;
  void paintLine(QPainter& painter, QRect room) const;
  int widestLabel(const QFontMetrics& metrics) const;
  std::size_t labelledEvery(const QFontMetrics& metrics, double step) const;
  void tell();
  bool isEmpty() const;
  QString emptyText() const;
  void savePicture();
  void saveNumbers();
  std::optional<SavedFile> askFor(const FileForm& form);

  QString title_;
  QString emptyText_ = "没有数据";
  Kind kind_ = Kind::Bars;
  bool known_ = false;
  std::vector<Point> points_;
  QString openedWhat_;
  std::function<void()> opened_;
  FormHost* host_ = nullptr;
};

/// "1,234" for a figure in a narrow place, "123.4万" for a long one.
QString shortAmount(double amount);

}  // namespace zelkor
