#pragma once

class QPrinter;
class QWidget;

namespace viewer {

/// Lets a person choose paper and orientation in the toolkit's dialog; whether they were accepted.
bool askForPage(QPrinter& printer, QWidget& parent);

} // namespace viewer
