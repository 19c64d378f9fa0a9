#include "app/TablePage.h"

#include <algorithm>
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QStyleOptionFocusRect>

#include "app/Frame.h"
#include "export/SurveyColumns.h"

namespace corvan {
namespace {

/// Characters that a field of the column holds as a rule.
int Caratteri(const TableColumn& shown) {
  constexpr int date = 19, wide = 17, narrow = 11, whole = 7;
  if (shown.name == "time") return date;
  static const Survey sample = [] {
    Survey survey;
    survey.Misure.append(Misura{});
    return survey;
  }();
  const TableValue::Form form = shown.at(sample, 1).form;
  return form == TableValue::Form::Double ? wide : form == TableValue::Form::Single ? narrow : whole;
}

/// Paints a field as one line of text: a third of the time that a style takes with its icons, ticks and wrapped texts.
class FieldPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& field, const QModelIndex& index) const override {
    const bool selected = field.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        field.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QVariant ground = index.data(Qt::BackgroundRole);
    QColor ink = field.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    QFont font = field.font;
    if (ground.isValid()) font.setBold(true);
    if (selected) {
      painter->fillRect(field.rect, field.palette.brush(group, QPalette::Highlight));
    } else if (ground.isValid()) {
      painter->fillRect(field.rect, ground.value<QBrush>());
      ink = index.data(Qt::ForegroundRole).value<QBrush>().color();
    }
    constexpr int margin = Unit / 2;
    const QString text = index.data(Qt::DisplayRole).toString();
    const QFontMetrics metrics(font);
    const int wide = metrics.horizontalAdvance(text), room = field.rect.width() - 2 * margin;
    const int left = field.rect.left() + margin + std::max(0, room - wide);
    const int base = field.rect.top() + (field.rect.height() - metrics.height()) / 2 + metrics.ascent();
    painter->setFont(font);
    painter->setPen(ink);
    painter->drawText(QPoint(left, base), wide > room ? metrics.elidedText(text, Qt::ElideRight, room) : text);
    if (!field.state.testFlag(QStyle::State_HasFocus)) return;
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(field);
    focus.state |= QStyle::State_KeyboardFocusChange;
    focus.backgroundColor = field.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
    field.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, field.widget);
  }
};

}  // namespace

TablePage::TablePage(Session& session, std::function<void()> changed)
    : session_(session), changed_(std::move(changed)), model_(session) {
  setObjectName("TablePage");
  setModel(&model_);
  setItemDelegate(new FieldPainter(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setTabKeyNavigation(false);  // Tab leaves the table, as it leaves every other control
  setMinimumSize(320, 240);
  disponiColonne();
  const auto action = [this](const char* name, const QString& caption, const QKeySequence& key, auto run) {
    auto* made = Named(new QAction(caption, this), name);
    made->setShortcut(key);
    made->setShortcutContext(Qt::WidgetWithChildrenShortcut);  // boxes and the picture have keys of their own
    connect(made, &QAction::triggered, this, run);
    addAction(made);
    return made;
  };
  pick_ = action("TablePick", "&Pick as Extreme", {}, [this] { scegli(currentIndex()); });
  section_ = action("TableSection", "Choose as &Section", QKeySequence("Ctrl+Shift+E"), [this] { scegliSezione(); });
  exclude_ = action("TableExclude", "E&xclude or Include Reading", QKeySequence::Delete, [this] { escludi(); });
  copy_ = action("TableCopy", "&Copy\tCtrl+C", {}, [this] { copia(); });
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) { scegli(index); });
}

/// Rows of one height and columns of fixed widths: no field is asked for its size.
void TablePage::disponiColonne() {
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + Unit / 2);
  QHeaderView* header = horizontalHeader();
  header->setHighlightSections(false);
  header->setSortIndicatorClearable(true);
  header->setSortIndicator(-1, Qt::AscendingOrder);
  setSortingEnabled(true);
  larghezze();
}

void TablePage::larghezze() {
  const int margin = 3 * Unit, digit = fontMetrics().horizontalAdvance('0');
  for (int column = 0; column < model_.columnCount(); ++column) {
    const QString title = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int text = fontMetrics().horizontalAdvance(title) + margin;  // the mark of the order beside it
    setColumnWidth(column, std::max(text, Caratteri(model_.colonna(column)) * digit + Unit));
  }
}

void TablePage::mostra() {
  const int columns = model_.columnCount();
  model_.aggiorna();
  if (model_.columnCount() != columns) larghezze();
  const Picks now{session_.selection.primo(), session_.selection.secondo()};
  if (now != picks_) {
    const auto& latest = now.second != picks_.second && now.second ? now.second : now.first;
    if (latest) pending_ = latest;
    picks_ = now;
  }
  viewport()->update();
  if (isVisible()) avvicina();
}

/// Brings what was picked elsewhere into sight.
void TablePage::avvicina() {
  if (!pending_) return;
  const int row = model_.riga(*std::exchange(pending_, std::nullopt));
  const int column = std::max(columnAt(0), 0);
  if (row >= 0) scrollTo(model_.index(row, column));
}

void TablePage::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  avvicina();
}

void TablePage::scegli(const QModelIndex& index) {
  if (!index.isValid()) return;
  session_.esegui({PictureAct::Pick, {TargetKind::Measurement, model_.misura(index.row())}});
  changed_();
}

std::vector<int> TablePage::righeScelte() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

/// Whatever the order of the rows, a section runs from the lowest to the highest number.
void TablePage::scegliSezione() {
  std::vector<std::int32_t> chosen;
  for (const int row : righeScelte()) chosen.push_back(model_.misura(row));
  if (chosen.empty()) return;
  const auto [first, last] = std::minmax_element(chosen.begin(), chosen.end());
  session_.findings().comincia("Choose as Section");
  session_.selection.imposta(Extreme::First, *first);
  session_.selection.imposta(Extreme::Second, *last);
  changed_();
}

/// The reading whose field is current, if it is one of a channel that was stored.
std::optional<ReadingUnder> TablePage::lettura() const {
  if (!currentIndex().isValid()) return std::nullopt;
  const TableColumn& column = model_.colonna(currentIndex().column());
  const std::int32_t measurement = model_.misura(currentIndex().row());
  const bool electrode = column.name.front() == 'e' && column.name.size() <= 3;  // e1 to e11
  const auto& all = session_.survey.dati().Misure;
  const auto k = static_cast<std::size_t>(measurement);
  if (column.slot == 0 || electrode || !all.contains(k) || !HaLettura(all(k), column.slot)) return std::nullopt;
  return ReadingUnder{measurement, column.slot};
}

void TablePage::escludi() {
  const std::optional<ReadingUnder> reading = lettura();
  if (!reading) return;
  session_.escludi(*reading);
  changed_();
}

void TablePage::copia() const {
  const std::vector<int> rows = righeScelte();
  if (!rows.empty()) QGuiApplication::clipboard()->setText(model_.testo(rows));
}

void TablePage::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->matches(QKeySequence::Copy)) {
    copia();  // the base would copy one field
  } else if (enter) {
    scegli(currentIndex());
  } else {
    QTableView::keyPressEvent(event);
  }
}

void TablePage::contextMenuEvent(QContextMenuEvent* event) {
  const bool some = selectionModel()->hasSelection();
  for (QAction* action : {section_, copy_}) action->setEnabled(some);
  pick_->setEnabled(currentIndex().isValid());
  exclude_->setEnabled(lettura().has_value());
  QMenu menu(this);
  menu.setObjectName("TableMenu");
  menu.addActions({pick_, section_, exclude_, copy_});
  menu.addSeparator();
  const int column = currentIndex().isValid() ? currentIndex().column() : 0;
  const QString title = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  const auto sort = [this](int by, Qt::SortOrder order) { return [this, by, order] { sortByColumn(by, order); }; };
  menu.addAction("Sort &Up by " + title, this, sort(column, Qt::AscendingOrder));
  menu.addAction("Sort &Down by " + title, this, sort(column, Qt::DescendingOrder));
  menu.addAction("&Order of Measurement", this, sort(-1, Qt::AscendingOrder));
  menu.exec(event->globalPos());
  for (QAction* action : {pick_, section_, exclude_, copy_}) action->setEnabled(true);
}

}  // namespace corvan
