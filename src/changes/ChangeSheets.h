#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"
#include "changes/CardVersion.h"
#include "changes/ChangeKind.h"
#include "changes/ChangeSheet.h"
#include "startup/RunContext.h"

namespace zelkor {

/// By which number a card is typed.
enum class CardKey { CardNumber, AssetNumber };

/// The change sheets of one kind: what stands behind frmAssetsAlteration. It works on the data file through
/// the default workspace. A save that a check refuses leaves its transaction open, and the next one runs in
/// it. Methods that answer a SheetResult raise no RuntimeError.
class ChangeSheets {
 public:
  /// Opens the data file. `context` must outlive the object.
  ChangeSheets(RunContext& context, ChangeKind kind);

  ChangeKind kind() const { return kind_; }

  /// An empty sheet with the next number, the operating date and the operator; the card loaded before is let
  /// go. For the opening and for the key "增加". Raises what the engine raises.
  ChangeSheet newSheet();

  /// The list of frmCardDetail for this kind, one header row at the top. Raises what the engine raises.
  TextGrid cardList();
  /// A typed card or asset number: loads the card and fills the sheet, which stays as it was when the card is
  /// not there.
  SheetResult loadCard(CardKey key, const std::string& number, ChangeSheet& sheet);
  /// The same for a row of cardList, its cells from column 0 on.
  SheetResult pickCard(const std::vector<std::string>& row, ChangeSheet& sheet);

  /// Saves the sheet with the card that was loaded last. The box reports success too.
  SheetResult save(const ChangeSheet& sheet);

  /// The most recent stored sheet of this kind, for the key "取消"; nothing when there is none. Raises what
  /// the engine raises.
  std::optional<ChangeSheet> mostRecent();

 private:
  using FindVersion = std::function<std::optional<CardVersion>()>;
  using ShowVersion = std::function<void(const CardVersion& card, ChangeSheet& sheet)>;
  SheetResult load(const FindVersion& find, const ShowVersion& show, ChangeSheet& sheet);

  RunContext& context_;
  ChangeKind kind_;
  Database database_;
  std::optional<CardVersion> card_;
};

}  // namespace zelkor
