#include "HelpPage.h"

#include <QFile>
#include <QList>
#include <QStringList>

namespace viewer {

namespace {

QString fileOf(const QString& page)
{
    return QLatin1String(":/help/") + page;
}

QString escaped(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&amp;"))
        .replace(QLatin1Char('<'), QLatin1String("&lt;"))
        .replace(QLatin1Char('>'), QLatin1String("&gt;"));
}

QString element(const char* name, const QString& content)
{
    return QString::fromLatin1("<%1>%2</%1>").arg(QLatin1String(name)).arg(content);
}

/// The words of a line with their marks, taken one after the other.
class Words {
public:
    explicit Words(const QString& text) : m_text(text) {}

    QString html()
    {
        QString html;
        while (m_place < m_text.size())
            html += next();
        return html;
    }

private:
    QString next()
    {
        if (m_text.at(m_place) == QLatin1Char('`'))
            return element("code", escaped(takeBetween("`", "`")));
        if (m_text.at(m_place) == QLatin1Char('['))
            return link();
        if (m_text.mid(m_place, 2) == QLatin1String("**"))
            return element("b", Words(takeBetween("**", "**")).html());
        return escaped(m_text.at(m_place++));
    }

    QString takeBetween(const char* opening, const char* closing)
    {
        const int from = m_place + int(qstrlen(opening));
        const int to = int(m_text.indexOf(QLatin1String(closing), from));
        m_place = (to < 0 ? int(m_text.size()) : to + int(qstrlen(closing)));
        return m_text.mid(from, to < 0 ? -1 : to - from);
    }

    QString link()
    {
        QString words = Words(takeBetween("[", "]")).html();
        const QString target = takeBetween("(", ")").remove(QLatin1String(".md"));
        const QString page = target.section(QLatin1Char('#'), 0, 0);
        if (!page.isEmpty() && !QFile::exists(fileOf(page)))
            return words;
        return QString::fromLatin1("<a href=\"%1\">%2</a>").arg(target, words);
    }

    const QString m_text;
    int m_place = 0;
};

QString html(const QString& text)
{
    return Words(text).html();
}

/// What stands between blank lines, and each heading. Each line of a list and of a table is one.
struct Block {
    enum Kind { Heading, Paragraph, List, Table };

    Kind kind;
    QStringList lines;
};

Block::Kind kindOf(const QString& line)
{
    return line.startsWith(QLatin1Char('#'))      ? Block::Heading
           : line.startsWith(QLatin1String("- ")) ? Block::List
           : line.startsWith(QLatin1Char('|'))    ? Block::Table
                                                  : Block::Paragraph;
}

QList<Block> blocksOf(const QString& markdown)
{
    QList<Block> blocks;
    bool begins = true;
    const QStringList lines = markdown.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const Block::Kind kind = kindOf(line);
        const bool goesOn = !begins && blocks.last().kind != Block::Heading;
        begins = line.trimmed().isEmpty();
        if (begins)
            continue;
        if (goesOn && kind == Block::Paragraph)
            blocks.last().lines.last() += QLatin1Char(' ') + line.trimmed();
        else if (goesOn && kind == blocks.last().kind)
            blocks.last().lines.append(line);
        else
            blocks.append({kind, QStringList(line)});
    }
    return blocks;
}

// The name that links have for it: as the usual places that show Markdown make it.
QString anchorOf(const QString& title)
{
    QString anchor;
    for (const QChar letter : title.toLower())
        if (letter.isLetterOrNumber())
            anchor += letter;
        else if (letter == QLatin1Char(' '))
            anchor += QLatin1Char('-');
    return anchor;
}

QString headingHtml(const QString& line)
{
    const int level = int(line.indexOf(QLatin1Char(' ')));
    const QString title = line.mid(level + 1);
    return QString::fromLatin1("<h%1><a name=\"%2\"></a>%3</h%1>").arg(level).arg(anchorOf(title), html(title));
}

QString listHtml(const QStringList& lines)
{
    QString items;
    for (const QString& line : lines)
        items += element("li", html(line.mid(2)));
    return element("ul", items);
}

QString rowHtml(const QString& line, const char* cell)
{
    QStringList cells = line.split(QLatin1Char('|')).mid(1);
    cells.removeLast();
    QString row;
    for (const QString& text : cells)
        row += element(cell, html(text.trimmed()));
    return element("tr", row);
}

// The second line rules the first off.
QString tableHtml(const QStringList& lines)
{
    QString rows = rowHtml(lines.first(), "th");
    for (const QString& line : lines.mid(2))
        rows += rowHtml(line, "td");
    return QLatin1String("<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">") + rows + QLatin1String("</table>");
}

QString blockHtml(const Block& block)
{
    switch (block.kind) {
    case Block::Heading:
        return headingHtml(block.lines.first());
    case Block::List:
        return listHtml(block.lines);
    case Block::Table:
        return tableHtml(block.lines);
    case Block::Paragraph:
        break;
    }
    return element("p", html(block.lines.first()));
}

} // namespace

QString helpPage(const QString& name)
{
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QString page;
    const QList<Block> blocks = blocksOf(QString::fromUtf8(file.readAll()));
    for (const Block& block : blocks)
        page += blockHtml(block) + QLatin1Char('\n');
    return page;
}

} // namespace viewer
