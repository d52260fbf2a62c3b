#pragma once

#include <functional>

class QEvent;
class QObject;

namespace velmora::sdk::integration::toolkit {

/// Since Qt 6.3 QDialog::done() sends the dialog a Close, which nobody is meant to see. Here it sends none.
class ClosingOfDialogs {
public:
    explicit ClosingOfDialogs(const std::function<bool(QObject*, QEvent*)>&) {}

    bool takesOver(QObject*, const QEvent&) { return false; }
};

} // namespace velmora::sdk::integration::toolkit
