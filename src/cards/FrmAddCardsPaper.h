#pragma once

#include <optional>
#include <QWidget>
#include <vector>

#include "cards/CardLayout.h"

namespace zelkor {

/// The card as a sheet of paper: its title, the ruled table behind the fields, the number and date above it
/// and the signatures below. The fields themselves are laid over it.
class CardPaper final : public QWidget {
 public:
  explicit CardPaper(QWidget* parent = nullptr);

  /// Rules the paper for these fields. What must be filled in is marked.
  void setPlaces(std::vector<CardFieldPlace> places, std::vector<CardField> required);
  const std::vector<CardFieldPlace>& places() const { return places_; }
  /// The field's place; nullptr when the card has no such field.
  const CardFieldPlace* find(CardField field) const;
  /// Marks the field that the keyboard works on.
  void setCurrent(std::optional<CardField> field);

  /// What is free left and right of the card: less on a narrow screen.
  int margin() const;
  QRect captionRect(const CardFieldPlace& place) const;
  QRect valueRect(const CardFieldPlace& place) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool inTable(const CardFieldPlace& place) const;
  QRect tableRect() const;
  void paintField(QPainter& painter, const CardFieldPlace& place) const;
  void paintTable(QPainter& painter) const;
  void paintNote(QPainter& painter) const;

  std::vector<CardFieldPlace> places_;
  std::vector<CardField> required_;
  std::optional<CardField> current_;
  int lastRow_ = 0;
};

}  // namespace zelkor
