// The page of the window that shows the survey as a table.
#pragma once

#include <functional>
#include <optional>
#include <QTableView>
#include <utility>
#include <vector>

#include "app/SurveyModel.h"

namespace corvan {

/// Picks measurements as the picture does and shows what was picked there.
class TablePage : public QTableView {
 public:
  /// @param changed runs after each command
  TablePage(Session& session, std::function<void()> changed);

  void mostra();  ///< the survey and the picks as they stand now

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void disponiColonne();
  void larghezze();
  void scegli(const QModelIndex& index);
  void scegliSezione();
  std::optional<ReadingUnder> lettura() const;
  void escludi();
  void copia() const;
  void avvicina();
  std::vector<int> righeScelte() const;

  Session& session_;
  std::function<void()> changed_;
  SurveyModel model_;
  QAction* copy_ = nullptr;
  QAction* pick_ = nullptr;
  QAction* section_ = nullptr;
  QAction* exclude_ = nullptr;
  using Picks = std::pair<std::optional<std::int32_t>, std::optional<std::int32_t>>;
  Picks picks_;                          ///< those that were shown last
  std::optional<std::int32_t> pending_;  ///< picked while the page was hidden
};

}  // namespace corvan
