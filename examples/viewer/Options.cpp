#include "Options.h"

#include "EngineSession.h"

namespace viewer {

namespace {

// The words of the command line, taken one after the other.
class Words {
public:
    explicit Words(const QStringList& words) : m_words(words) {}

    bool atEnd() const { return m_words.isEmpty(); }
    QString take() { return m_words.takeFirst(); }

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

QSize parseSize(const QString& text, Options& options)
{
    const QStringList parts = text.split(QLatin1Char('x'));
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    if (options.error.isEmpty() && (size.width() < 1 || size.height() < 1))
        options.error =
            QString::fromLatin1("\"%1\" is not a size; write it as WxH in pixels, for example 800x600.").arg(text);
    return size;
}

int parseSupersample(const QString& text, Options& options)
{
    const int factor = text.toInt();
    if (options.error.isEmpty() && (factor < 1 || factor > 8))
        options.error = QString::fromLatin1("\"%1\" is not a factor of supersampling; write 1 to 8.").arg(text);
    return factor;
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
        options.task = entry.task;
        if (entry.writes)
            options.output = rest.takeValueOf(word, options);
        return true;
    }
    return false;
}

bool parseSetting(const QString& word, Words& rest, Options& options)
{
    if (word == QLatin1String("--slow"))
        options.slow = true;
    else if (word == QLatin1String("--landscape"))
        options.landscape = true;
    else if (word == QLatin1String("--size"))
        options.size = parseSize(rest.takeValueOf(word, options), options);
    else if (word == QLatin1String("--supersample"))
        options.supersample = parseSupersample(rest.takeValueOf(word, options), options);
    else if (word == QLatin1String("--strategy"))
        options.software = parseStrategy(rest.takeValueOf(word, options), options);
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
    if (word.startsWith(QLatin1String("--")))
        options.error = QString::fromLatin1("There is no option %1.").arg(word);
    else
        options.files.append(word);
}

} // namespace

Options parseOptions(const QStringList& arguments)
{
    Options options;
    Words words(arguments);
    while (!words.atEnd() && options.error.isEmpty())
        parseWord(words.take(), words, options);
    const bool writes = options.task >= Options::TakeSnapshot;
    if (options.error.isEmpty() && writes && options.files.size() != 1)
        options.error = QString::fromLatin1("A picture is made of exactly one data file.");
    return options;
}

QString helpText()
{
    return QString::fromLatin1(
        "usage: viewer [OPTIONS] [FILE...]\n"
        "\n"
        "Shows delimited tables (lines) and ESRI ASCII grids (surfaces).\n"
        "\n"
        "  FILE                    opens the file; several files are opened one after the other\n"
        "  --snapshot OUT.png FILE draws the file, writes what the screen shows and exits\n"
        "  --export OUT.png FILE   draws the file into an image of any size and exits\n"
        "  --print OUT.pdf FILE    prints the file and exits\n"
        "  --size WxH              size of the picture, or of the window, in pixels\n"
        "  --supersample N         draws an export N times (1 to 8) larger and averages it\n"
        "  --strategy NAME         draws an export with hardware (the default) or software\n"
        "  --paper NAME            prints on Letter (the default), Double, A4, A3, Custom1 or Custom2\n"
        "  --landscape             prints across the paper\n"
        "  --slow                  makes all drawing slow, to try out interrupting it\n"
        "  --version               prints the version\n"
        "  --help, -h              prints this text\n"
        "\n"
        "Exit code: 0 when all went well, 1 when a file could not be read or written, 2 for a wrong\n"
        "command line, 3 when the display or its OpenGL cannot be used or was lost.\n");
}

} // namespace viewer
