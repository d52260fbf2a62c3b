#include "Options.h"

#include "EngineSession.h"
#include "LocalePaper.h"

#include <QFileInfo>

namespace viewer {

namespace {

// The words of the command line, taken one after the other.
class Words {
public:
    explicit Words(const QStringList& words) : m_words(words) {}

    bool atEnd() const { return m_words.isEmpty(); }
    QString take() { return m_words.takeFirst(); }
    QStringList takeAll()
    {
        QStringList words = m_words;
        m_words.clear();
        return words;
    }

    QString takeValueOf(const QString& option, Options& options)
    {
        if (!atEnd())
            return take();
        options.error = option + QLatin1String(" needs a value.");
        return QString();
    }

private:
    QStringList m_words;
};

bool isSide(int pixels)
{
    return pixels >= 1 && pixels <= Options::LargestSide;
}

QSize parseSize(const QString& text, Options& options)
{
    const QStringList parts = text.split(QLatin1Char('x'));
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    if (options.error.isEmpty() && !(isSide(size.width()) && isSide(size.height())))
        options.error = QString::fromLatin1("\"%1\" is not a size; write it as WxH in pixels, 1 to %2 each, for "
                                            "example 800x600.")
                            .arg(text, QString::number(Options::LargestSide));
    return size;
}

int parseSupersample(const QString& text, Options& options)
{
    const int factor = text.toInt();
    if (options.error.isEmpty() && (factor < 1 || factor > Options::MostSupersampling))
        options.error = QString::fromLatin1("\"%1\" is not a factor of supersampling; write 1 to %2.")
                            .arg(text, QString::number(Options::MostSupersampling));
    return factor;
}

int parseDotsPerInch(const QString& text, Options& options)
{
    const int dots = text.toInt();
    if (options.error.isEmpty() && (dots < 1 || dots > Options::MostDotsPerInch))
        options.error = QString::fromLatin1("The dots per inch \"%1\" are none; give a whole number from 1 to %2.")
                            .arg(text, QString::number(Options::MostDotsPerInch));
    return dots;
}

bool parseStrategy(const QString& text, Options& options)
{
    const bool software = text == QLatin1String("software");
    if (options.error.isEmpty() && !software && text != QLatin1String("hardware"))
        options.error =
            QString::fromLatin1("There is no strategy \"%1\"; write \"hardware\" or \"software\".").arg(text);
    return software;
}

int parsePaper(const QString& text, Options& options)
{
    const QStringList names = EngineSession::paperNames();
    const int index = names.indexOf(text);
    if (options.error.isEmpty() && index < 0)
        options.error =
            QString::fromLatin1("There is no paper \"%1\"; there are: %2.").arg(text, names.join(QLatin1String(", ")));
    return index;
}

/// The papers in words.
QString paperChoice()
{
    QStringList names = EngineSession::paperNames();
    names[paperOfLocale()] += QLatin1String(" (the default)");
    const QString last = names.takeLast();
    return names.join(QLatin1String(", ")) + QLatin1String(" or ") + last;
}

bool parseTask(const QString& word, Words& rest, Options& options)
{
    static const struct {
        const char* word;
        Options::Task task;
        bool writes;
    } tasks[] = {
        {"--help", Options::PrintHelp, false},       {"-h", Options::PrintHelp, false},
        {"--version", Options::PrintVersion, false}, {"--snapshot", Options::TakeSnapshot, true},
        {"--export", Options::ExportImage, true},    {"--print", Options::PrintPage, true},
    };
    for (const auto& entry : tasks) {
        if (word != QLatin1String(entry.word))
            continue;
        if (entry.writes && options.writes())
            options.error = QString::fromLatin1("Only one of --snapshot, --export and --print can be given.");
        else if (entry.writes)
            options.output = rest.takeValueOf(word, options);
        options.task = entry.task;
        return true;
    }
    return false;
}

bool parseSetting(const QString& word, Words& rest, Options& options)
{
    if (word == QLatin1String("--slow"))
        options.slow = true;
    else if (word == QLatin1String("--transparent"))
        options.transparent = true;
    else if (word == QLatin1String("--landscape"))
        options.landscape = true;
    else if (word == QLatin1String("--size"))
        options.size = parseSize(rest.takeValueOf(word, options), options);
    else if (word == QLatin1String("--supersample"))
        options.supersample = parseSupersample(rest.takeValueOf(word, options), options);
    else if (word == QLatin1String("--dpi"))
        options.dotsPerInch = parseDotsPerInch(rest.takeValueOf(word, options), options);
    else if (word == QLatin1String("--strategy"))
        options.software = parseStrategy(rest.takeValueOf(word, options), options);
    else if (word == QLatin1String("--content"))
        options.modules.append(rest.takeValueOf(word, options));
    else if (word == QLatin1String("--paper"))
        options.paper = parsePaper(rest.takeValueOf(word, options), options);
    else
        return false;
    return true;
}

void parseWord(const QString& word, Words& rest, Options& options)
{
    if (parseTask(word, rest, options) || parseSetting(word, rest, options))
        return;
    if (word == QLatin1String("--"))
        options.files += rest.takeAll();
    else if (word.startsWith(QLatin1Char('-')) && word.size() > 1)
        options.error = QString::fromLatin1("There is no option %1.").arg(word);
    else
        options.files.append(word);
}

/// What is wrong with the name to write to; a name without a suffix may be any, a device's for example.
QString wrongSuffix(const Options& options)
{
    const bool page = options.task == Options::PrintPage;
    const QString suffix = QFileInfo(options.output).suffix();
    const QString right = QLatin1String(page ? "pdf" : "png");
    if (suffix.isEmpty() || suffix.compare(right, Qt::CaseInsensitive) == 0)
        return QString();
    const char* const message = page ? "%1: pages are printed as PDF; give a name that ends in .pdf."
                                     : "%1: images are written as PNG; give a name that ends in .png.";
    return QString::fromLatin1(message).arg(options.output);
}

QString problemOfWriting(const Options& options)
{
    if (options.files.size() != 1)
        return QString::fromLatin1("A picture is made of exactly one data file.");
    return wrongSuffix(options);
}

} // namespace

Options parseOptions(const QStringList& arguments)
{
    Options options;
    options.paper = paperOfLocale();
    Words words(arguments);
    while (!words.atEnd() && options.error.isEmpty())
        parseWord(words.take(), words, options);
    if (options.error.isEmpty() && options.writes())
        options.error = problemOfWriting(options);
    return options;
}

QString helpText()
{
    const QString text = QString::fromLatin1(
        "usage: viewer [OPTIONS] [FILE...]\n"
        "\n"
        "Shows delimited tables (lines) and ESRI ASCII grids (surfaces).\n"
        "\n"
        "  FILE                    opens the file; several files are opened one after the other\n"
        "  --snapshot OUT.png FILE draws the file, writes what the screen shows and exits\n"
        "  --export OUT.png FILE   draws the file into an image and exits\n"
        "  --print OUT.pdf FILE    prints the file and exits\n"
        "  --size WxH              size of the picture, or of the window, in pixels: each side at most\n"
        "                          %2, and a window or snapshot no larger than the screen\n"
        "  --supersample N         draws an export N times (1 to 8) larger and averages it\n"
        "  --dpi N                 exports text and lines as large as at N dots per inch (1 to %3); without\n"
        "                          it they grow and shrink with the picture, and text stays legible\n"
        "  --strategy NAME         draws an export with hardware (the default) or software\n"
        "  --transparent           exports without the white ground\n"
        "  --paper NAME            prints on %1\n"
        "  --landscape             prints across the paper\n"
        "  --content MODULE.so     shows also what this module reads; may be given several times\n"
        "  --slow                  makes all drawing slow, to try out interrupting it\n"
        "  --version               prints the version\n"
        "  --help, -h              prints this text\n"
        "  --                      what follows are files, also where it begins with -\n"
        "\n"
        "A command line has one of --snapshot, --export and --print. OUT ends in .png, or .pdf for --print,\n"
        "or has no suffix. A signal that ends them (Ctrl+C) leaves an older OUT as it was.\n"
        "\n"
        "Exit code: 0 when all went well, 1 when a file could not be read or written, 2 for a wrong\n"
        "command line, 3 when the display or its OpenGL cannot be used or was lost.\n");
    return text.arg(paperChoice(), QString::number(Options::LargestSide), QString::number(Options::MostDotsPerInch));
}

} // namespace viewer
