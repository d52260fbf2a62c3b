// clang-format off
// What Qt 4's moc cannot read, each marked, among what it can.
#pragma once

#include "tests/toolkit/qt4/ForMocToo.h"

#include <QObject>

namespace planted { namespace inner { class Forward; } }

namespace planted::shortly { // not in Qt 4: namespace a::b (moc 4 stops there)
namespace alias = planted::inner;

class Plain final {}; // without a meta object: moc passes it over

class Final final : public QObject { // not in Qt 4: a final class (moc 4 takes "final" for its name)
    Q_OBJECT
};

class [[nodiscard]] Attributed : public QObject { // not in Qt 4: an attribute of a class (moc 4 does not see the class)
    Q_OBJECT
};

#define ONE
class ONE ONE Named : public QObject { // not in Qt 4: two macros before the name of a class (moc 4 does not see the class)
    Q_OBJECT
};

class ONE Readable : public QObject {
    Q_OBJECT
public:
    explicit Readable(QObject* parent = nullptr);
    ~Readable() override;
    [[nodiscard]] int size() const noexcept;
    enum class Kind : int { One, Two };
    template <class... T> void each(T&&... values);
    Readable(const Readable&) = delete;
    int m_many = 100'000; // not in Qt 4: a digit separator (moc 4 takes it for a character)
    const char* m_text = R"(a "text")"; // not in Qt 4: a raw string (moc 4 loses its place)
    const char* m_fine = "namespace a::b, R\"";
    char m_quote = '\'';

public Q_SLOTS:
    void plain(QList<QList<int>> list);
    virtual void rename() noexcept;
    int asked() const;
    void checked() noexcept(true); // not in Qt 4: noexcept(...) on a signal or slot
    auto trailing() -> int; // not in Qt 4: a trailing return type of a signal or slot
    int qualified() &; // not in Qt 4: a reference-qualified signal or slot
    [[nodiscard]] int kept(); // not in Qt 4: an attribute of a signal or slot
    using Number = int; // not in Qt 4: using among signals or slots
    template <class T> void any(T value); // not in Qt 4: a template among signals or slots
    void called(void (*back)(int)); // not in Qt 4: a function pointer in a signal or slot

Q_SIGNALS:
    void went();
    void wentAgain(int (*back)()); // not in Qt 4: a function pointer in a signal or slot

private:
    auto hidden() -> int;
};

} // namespace planted::shortly
