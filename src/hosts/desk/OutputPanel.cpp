#include "hosts/desk/OutputPanel.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <stdexcept>

namespace korvane {
namespace {

constexpr int kStatusMilliseconds = 500;
constexpr int kUniverseWidth = 96;
constexpr int kAddressWidth = 170;

QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

OutputPanel::OutputPanel(NetworkOutput& output, QWidget* parent)
    : QGroupBox("Output", parent),
      output_(output),
      protocol_(new qt::DropDown(this)),
      universe_(new QSpinBox(this)),
      address_(new QLineEdit(this)),
      status_(new QLabel(this)) {
  declareFields();
  connect(protocol_, &QComboBox::activated, this, [this] { protocolChosen(); });
  connect(universe_, &QSpinBox::valueChanged, this, [this] { apply(); });
  connect(address_, &QLineEdit::editingFinished, this, [this] { apply(); });
  connect(&refresh_, &QTimer::timeout, this, [this] { showStatus(); });
  refresh_.start(kStatusMilliseconds);
  protocolChosen();
}

void OutputPanel::declareFields() {
  protocol_->addItem("Off");
  for (const Protocol& protocol : protocols()) protocol_->addItem(toQString(protocol.name));
  protocol_->setToolTip("how the levels are sent to the lamps");
  universe_->setKeyboardTracking(false);
  universe_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  universe_->setFixedWidth(kUniverseWidth);
  universe_->setToolTip("number of the universe that carries the 512 channels");
  address_->setFixedWidth(kAddressWidth);
  address_->setToolTip("address of one receiver, such as 192.168.1.20; empty: all receivers");
  status_->setToolTip("where the levels go, and the last error of the network");
  status_->setTextFormat(Qt::PlainText);
  status_->setWordWrap(true);
  status_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* layout = new QVBoxLayout(this);
  auto* line = new QHBoxLayout;
  layout->addLayout(line);
  layout->addWidget(status_);
  line->addWidget(protocol_);
  line->addSpacing(8);
  line->addWidget(new QLabel("Universe", this));
  line->addWidget(universe_);
  line->addSpacing(8);
  line->addWidget(new QLabel("Address", this));
  line->addWidget(address_);
  line->addStretch(1);
}

const Protocol* OutputPanel::chosen() const {
  const int index = protocol_->currentIndex();
  return index <= 0 ? nullptr : &protocols()[static_cast<std::size_t>(index - 1)];
}

void OutputPanel::protocolChosen() {
  const Protocol* protocol = chosen();
  universe_->setEnabled(protocol != nullptr);
  address_->setEnabled(protocol != nullptr);
  if (protocol != nullptr) {
    const QSignalBlocker quiet(universe_);
    universe_->setRange(protocol->minUniverse, protocol->maxUniverse);
    address_->setPlaceholderText(toQString(protocol->address(universe_->value())));
  }
  apply();
}

void OutputPanel::apply() {
  const Protocol* protocol = chosen();
  QString target;
  if (protocol != nullptr) {
    target = toQString(protocol->word) + ":" + QString::number(universe_->value());
    address_->setPlaceholderText(toQString(protocol->address(universe_->value())));
    if (!address_->text().trimmed().isEmpty()) target += "@" + address_->text().trimmed();
  }
  complaint_.clear();
  if (target == applied_) return showStatus();
  applied_ = target;
  output_.stop();
  try {
    if (!target.isEmpty()) output_.start(parseOutputTarget(target.toStdString()));
  } catch (const std::invalid_argument& error) {
    complaint_ = QString::fromStdString(error.what());
  }
  showStatus();
}

void OutputPanel::use(const OutputTarget& target) {
  const QSignalBlocker quietUniverse(universe_);
  const QSignalBlocker quietAddress(address_);
  protocol_->setCurrentIndex(1 + static_cast<int>(target.protocol - protocols().data()));
  universe_->setRange(target.protocol->minUniverse, target.protocol->maxUniverse);
  universe_->setValue(target.universe);
  QString address = toQString(target.address);
  if (target.port != target.protocol->port) address += ":" + QString::number(target.port);
  if (!target.interface.empty()) address += "%" + toQString(target.interface);
  address_->setText(address);
  protocolChosen();
}

void OutputPanel::showStatus() {
  const bool off = applied_.isEmpty();
  const QString fares = off ? "Nothing is sent." : toQString(output_.status());
  status_->setText(complaint_.isEmpty() ? fares : complaint_);
}

}  // namespace korvane
