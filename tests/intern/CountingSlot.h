#pragma once

#include <QObject>

namespace velmora {
namespace test {

class CountingSlot : public QObject {
    Q_OBJECT

public:
    int calls = 0;

public Q_SLOTS:
    void call() { ++calls; }
};

} // namespace test
} // namespace velmora
