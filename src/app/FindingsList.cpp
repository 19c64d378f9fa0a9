#include "app/FindingsList.h"

#include <algorithm>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/ElidedLabel.h"
#include "app/Frame.h"
#include "base/PathText.h"
#include "base/Text.h"

namespace corvan {
namespace {

enum Column { CommandColumn, SeverityColumn, FileColumn, ReasonColumn, Columns };

struct Row {
  QString command;
  const Finding* finding;
};

/// The newest command first; within a command in the order in which things were seen.
std::vector<Row> Righe(const Findings& findings) {
  const auto& entries = findings.entries();
  std::vector<Row> rows;
  std::size_t end = entries.size();
  const auto take = [&](const QString& command, std::size_t first) {
    for (std::size_t k = first; k < end; ++k) rows.push_back({command, &entries[k]});
    end = std::min(end, first);
  };
  const auto& commands = findings.commands();
  for (auto command = commands.rbegin(); command != commands.rend(); ++command) {
    take(QString::fromStdString(command->name), command->first);
  }
  take("Start", 0);  // what was told before the first command
  return rows;
}

const char* NomeDi(Severity severity) { return severity == Severity::Fault ? "Fault" : "Note"; }

QString Testo(const std::string& text) { return QString::fromStdString(Visibile(text)); }

}  // namespace

FindingsList::FindingsList(const Findings& findings, QWidget* parent)
    : QDialog(parent), findings_(findings), table_(Named(new QTableWidget, "MessagesTable")) {
  setObjectName("Messages");
  setWindowTitle("Messages");
  setSizeGripEnabled(true);
  resize(QSize(100 * Unit, 50 * Unit).boundedTo(parent->size()));
  table_->setColumnCount(Columns);
  table_->setHorizontalHeaderLabels({"Command", "Severity", "File", "Message"});
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(true);
  table_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  const int letter = fontMetrics().averageCharWidth();
  const int widths[] = {20 * letter, 12 * letter, 22 * letter};
  for (int column = CommandColumn; column < ReasonColumn; ++column) table_->setColumnWidth(column, widths[column]);
  connect(table_->horizontalHeader(), &QHeaderView::sectionResized, table_, &QTableWidget::resizeRowsToContents);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  auto* copy = Named(buttons->addButton("&Copy All", QDialogButtonBox::ActionRole), "MessagesCopy",
                     "Copy the whole list as text");
  connect(copy, &QPushButton::clicked, this, [this] { copia(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  buttons->button(QDialogButtonBox::Close)->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(table_, 1);
  layout->addWidget(buttons);
}

void FindingsList::apri() {
  show();
  aggiorna();
  raise();
  activateWindow();
  table_->setFocus();
}

void FindingsList::aggiorna() {
  const std::size_t entries = findings_.entries().size(), commands = findings_.commands().size();
  if (!isVisible() || (entries == shown_ && commands == commandsShown_ && table_->rowCount() > 0)) return;
  shown_ = entries;
  commandsShown_ = commands;
  const std::vector<Row> rows = Righe(findings_);
  table_->setRowCount(std::max<int>(static_cast<int>(rows.size()), 1));
  const auto put = [this](int row, Column column, const QString& text, const QString& tip = {}) {
    auto* item = new QTableWidgetItem(text);
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    item->setToolTip(SuggerimentoDi(tip));
    table_->setItem(row, column, item);
    return item;
  };
  int row = 0;
  for (const auto& [command, finding] : rows) {
    const std::string name = PercorsoDi(finding->file).filename().string();
    put(row, CommandColumn, command);
    put(row, SeverityColumn, NomeDi(finding->severity))
        ->setForeground(ColoreDi(finding->severity == Severity::Fault ? Tone::Fault : Tone::Note, table_->palette()));
    put(row, FileColumn, Testo(name), Testo(finding->file));
    put(row, ReasonColumn, Testo(finding->reason), Testo(finding->reason));
    ++row;
  }
  if (rows.empty()) {
    for (const Column column : {CommandColumn, SeverityColumn, FileColumn}) put(0, column, {});
    put(0, ReasonColumn, "Nothing was left out, refused or failed so far.");
  }
  table_->setCurrentCell(0, CommandColumn);
  table_->resizeRowsToContents();
  table_->scrollToTop();
}

/// One finding a line, the columns with tabs between them, files with their folder.
void FindingsList::copia() const {
  QString text = "Command\tSeverity\tFile\tMessage\n";
  for (const auto& [command, finding] : Righe(findings_)) {
    text += QStringList{command, NomeDi(finding->severity), Testo(finding->file), Testo(finding->reason)}.join('\t');
    text += '\n';
  }
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace corvan
