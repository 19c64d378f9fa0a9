// The survey as a table: reads it in place, sorts by an order of its rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <QAbstractTableModel>
#include <QStringList>
#include <utility>
#include <vector>

#include "export/SurveyColumns.h"
#include "session/Session.h"

namespace corvan {

/// Rows are measurements in the order that the header's mark tells; columns are those of the .csv.
class SurveyModel : public QAbstractTableModel {
 public:
  explicit SurveyModel(const Session& session) : session_(session) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// Numbers as numbers; equal ones keep the order of the measurements; empty fields and what is not finite stand last
  /// in both directions. @param column -1: in the order of the measurements
  void sort(int column, Qt::SortOrder order) override;

  /// Shows the survey as it stands now. @return false when nothing in it had changed
  bool aggiorna();
  /// Number of the measurement in a row, from 1.
  std::int32_t misura(int row) const;
  int riga(std::int32_t measurement) const;  ///< the row of a measurement; -1 for none
  /// A header line and these rows as tab-separated text, as they are shown.
  QString testo(const std::vector<int>& rows) const;
  const TableColumn& colonna(int column) const { return columns_->at(static_cast<std::size_t>(column)); }
  /// What stands in a field, as it is shown.
  QString campo(std::int32_t measurement, int column) const;

 private:
  void ordina();
  void riordina();
  bool scelta(std::int32_t measurement) const;

  const Session& session_;
  std::size_t revision_ = 0;
  std::size_t count_ = 0;                                                ///< rows that views know of
  const std::vector<TableColumn>* columns_ = &ColonneTabella(Survey());  ///< likewise
  int column_ = -1;
  Qt::SortOrder direction_ = Qt::AscendingOrder;
  std::vector<std::int32_t> order_;  ///< measurements row by row; empty: in their own order
};

}  // namespace corvan
