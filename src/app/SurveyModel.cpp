#include "app/SurveyModel.h"

#include <algorithm>
#include <cmath>
#include <QBrush>
#include <QColor>
#include <QFont>
#include <string_view>

#include "base/OleDate.h"

namespace corvan {
namespace {

using Form = TableValue::Form;

constexpr QRgb PickedGround = 0xFFFFE08A, PickedText = 0xFF202020;  // alike on light and on dark desktops

bool Ora(const TableColumn& column) { return column.name == "time"; }

QString Intestazione(const TableColumn& column) {
  const QString name = QString::fromStdString(column.name);
  return *column.unit == '\0' ? name : name + " [" + QString::fromUtf8(column.unit) + "]";
}

QString Spiegazione(const TableColumn& column) {
  QString text = QString::fromUtf8(column.meaning);
  if (column.slot > 0) text += " " + QString::number(column.slot);
  if (Ora(column)) text = "date and time; the tool tip of a field tells the " + text + ", as the .csv does";
  return *column.unit == '\0' ? text : text + ", " + QString::fromUtf8(column.unit);
}

}  // namespace

int SurveyModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : static_cast<int>(count_); }

int SurveyModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_->size());
}

std::int32_t SurveyModel::misura(int row) const {
  return order_.empty() ? row + 1 : order_.at(static_cast<std::size_t>(row));
}

int SurveyModel::riga(std::int32_t measurement) const {
  if (measurement < 1 || static_cast<std::size_t>(measurement) > count_) return -1;
  if (order_.empty()) return measurement - 1;
  return static_cast<int>(std::find(order_.begin(), order_.end(), measurement) - order_.begin());
}

bool SurveyModel::scelta(std::int32_t measurement) const {
  return session_.selection.primo() == measurement || session_.selection.secondo() == measurement;
}

QString SurveyModel::campo(std::int32_t measurement, int column) const {
  const Survey& survey = session_.survey.dati();
  const auto n = static_cast<std::size_t>(measurement);
  if (!survey.Misure.contains(n)) return {};
  const TableValue value = colonna(column).at(survey, n);
  const bool dated = Ora(colonna(column)) && value.form != Form::Empty && TempoValido(value.number);
  return QString::fromStdString(dated ? TestoDataOra(DaGiorni(value.number)) : TestoValore(value));
}

QVariant SurveyModel::data(const QModelIndex& index, int role) const {
  const std::int32_t measurement = misura(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return campo(measurement, index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    case Qt::ToolTipRole: {
      const auto n = static_cast<std::size_t>(measurement);
      const TableColumn& column = colonna(index.column());
      if (!Ora(column) || !session_.survey.dati().Misure.contains(n)) return {};
      return QString::fromStdString(TestoValore(column.at(session_.survey.dati(), n)));
    }
    case Qt::BackgroundRole:
      return scelta(measurement) ? QBrush(QColor(PickedGround)) : QVariant();
    case Qt::ForegroundRole:
      return scelta(measurement) ? QBrush(QColor(PickedText)) : QVariant();
    case Qt::FontRole: {
      if (!scelta(measurement)) return {};
      QFont bold;  // seen where a chosen row covers its ground
      bold.setBold(true);
      return bold;
    }
    default:
      return {};
  }
}

QVariant SurveyModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return Intestazione(colonna(section));
  if (role == Qt::ToolTipRole) return Spiegazione(colonna(section));
  return {};
}

/// Fills the order of the rows for the column in force.
void SurveyModel::ordina() {
  order_.clear();
  if (column_ < 0) return;
  struct Key {
    double value;
    std::int32_t measurement;
  };
  const Survey& survey = session_.survey.dati();
  const TableColumn& column = colonna(column_);
  std::vector<Key> keys;
  std::vector<std::int32_t> last;
  keys.reserve(count_);
  for (std::size_t n = 1; n <= count_; ++n) {
    const TableValue value = column.at(survey, n);
    const auto measurement = static_cast<std::int32_t>(n);
    if (value.form == Form::Empty || !std::isfinite(value.number)) {
      last.push_back(measurement);
    } else {
      keys.push_back({value.number, measurement});
    }
  }
  if (direction_ == Qt::AscendingOrder) {
    std::stable_sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) { return a.value < b.value; });
  } else {
    std::stable_sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) { return a.value > b.value; });
  }
  order_.reserve(count_);
  for (const Key& key : keys) order_.push_back(key.measurement);
  order_.insert(order_.end(), last.begin(), last.end());
}

/// Orders the rows anew; what is current and selected stays with its measurements.
void SurveyModel::riordina() {
  emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
  const QModelIndexList before = persistentIndexList();
  std::vector<std::int32_t> held;
  held.reserve(static_cast<std::size_t>(before.size()));
  for (const QModelIndex& index : before) held.push_back(misura(index.row()));
  ordina();
  std::vector<int> rows(count_ + 1);
  for (std::size_t row = 0; row < count_; ++row) {
    rows.at(static_cast<std::size_t>(misura(static_cast<int>(row)))) = static_cast<int>(row);
  }
  QModelIndexList after;
  after.reserve(before.size());
  for (qsizetype k = 0; k < before.size(); ++k) {
    const std::int32_t measurement = held.at(static_cast<std::size_t>(k));
    after << index(rows.at(static_cast<std::size_t>(measurement)), before.at(k).column());
  }
  changePersistentIndexList(before, after);
  emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void SurveyModel::sort(int column, Qt::SortOrder order) {
  if (column == column_ && order == direction_) return;
  column_ = column;
  direction_ = order;
  riordina();
}

bool SurveyModel::aggiorna() {
  if (revision_ == session_.revisione()) return false;
  revision_ = session_.revisione();
  const std::size_t count = session_.survey.dati().Misure.size();
  const std::vector<TableColumn>* columns = &ColonneTabella(session_.survey.dati());
  if (count != count_ || columns != columns_) {
    beginResetModel();
    count_ = count;
    columns_ = columns;
    if (column_ >= columnCount()) column_ = -1;
    ordina();
    endResetModel();
  } else if (column_ >= 0) {
    riordina();
  }
  return true;
}

QString SurveyModel::testo(const std::vector<int>& rows) const {
  QString text;
  const int columns = columnCount();
  for (int column = 0; column < columns; ++column) text += (column > 0 ? "\t" : "") + Intestazione(colonna(column));
  text += '\n';
  for (const int row : rows) {
    for (int column = 0; column < columns; ++column) {
      if (column > 0) text += '\t';
      text += campo(misura(row), column);
    }
    text += '\n';
  }
  return text;
}

}  // namespace corvan
