#include "featureset.h"

#include <parametercollection/exception.h>

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QStringList>
#include <QTextCodec>

using namespace ParameterCollection;

namespace Backend {

namespace {

const QString kMagic = QStringLiteral("Nodescope feature set");
const QString kEnd = QStringLiteral("[End]");

bool isName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return name.match(text).hasMatch();
}

// One line of the file under parse; every refusal names the file and the line.
class Parser {
public:
    Parser(const QString& source) : m_source(source) {}

    [[noreturn]] void fail(int line, const QString& why) const
    {
        throw InvalidArgumentException(
            m_source, line > 0 ? QStringLiteral("line %1: %2").arg(line).arg(why) : why);
    }

    QString unquote(const QString& text, int line) const
    {
        QString result;
        for (int i = 1; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (c == QLatin1Char('"')) {
                if (!text.mid(i + 1).trimmed().isEmpty()) {
                    fail(line, QStringLiteral("text after the closing quote"));
                }
                return result;
            }
            if (c != QLatin1Char('\\')) {
                result += c;
                continue;
            }
            if (++i >= text.size()) {
                break;
            }
            switch (text.at(i).unicode()) {
            case 'n':
                result += QLatin1Char('\n');
                break;
            case 'r':
                result += QLatin1Char('\r');
                break;
            case 't':
                result += QLatin1Char('\t');
                break;
            case '\\':
            case '"':
                result += text.at(i);
                break;
            default:
                fail(line, QStringLiteral("unknown escape \\%1").arg(text.at(i)));
            }
        }
        fail(line, QStringLiteral("the quoted value has no closing quote"));
    }

    // "Name = Value" into the line; false when the text is no such pair.
    bool pair(const QString& text, int line, QString* name, QString* value, bool* quoted) const
    {
        const int eq = text.indexOf(QLatin1Char('='));
        if (eq <= 0) {
            return false;
        }
        *name = text.left(eq).trimmed();
        if (!isName(*name)) {
            fail(line, QStringLiteral("'%1' is not a feature name").arg(*name));
        }
        const QString rest = text.mid(eq + 1).trimmed();
        *quoted = rest.startsWith(QLatin1Char('"'));
        *value = *quoted ? unquote(rest, line) : rest;
        return true;
    }

    FeatureSet::Selectors block(const QString& text, int line) const
    {
        FeatureSet::Selectors selectors;
        const QString inner = text.mid(1, text.size() - 2).trimmed();
        for (const QString& part : inner.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            QString name;
            QString value;
            bool quoted = false;
            if (!pair(part, line, &name, &value, &quoted) || value.isEmpty() || quoted ||
                value.contains(QLatin1Char('['))) {
                fail(line, QStringLiteral("a block names its selectors as [Selector = Value]"));
            }
            selectors.append({name, value});
        }
        return selectors;
    }

private:
    QString m_source;
};

QString headerText(const QString& text)
{
    QString clean = text;
    for (QChar& c : clean) {
        if (c.category() == QChar::Other_Control) {
            c = QLatin1Char(' ');
        }
    }
    return clean.trimmed();
}

bool needsQuotes(const QString& value)
{
    if (value.isEmpty() || value.trimmed() != value || value.startsWith(QLatin1Char('"'))) {
        return true;
    }
    for (const QChar c : value) {
        if (c.category() == QChar::Other_Control) {
            return true;
        }
    }
    return false;
}

} // namespace

QString FeatureSet::quoted(const QString& text)
{
    QString result = QStringLiteral("\"");
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '\\':
            result += QLatin1String("\\\\");
            break;
        case '"':
            result += QLatin1String("\\\"");
            break;
        case '\n':
            result += QLatin1String("\\n");
            break;
        case '\r':
            result += QLatin1String("\\r");
            break;
        case '\t':
            result += QLatin1String("\\t");
            break;
        default:
            result += c;
        }
    }
    return result + QLatin1Char('"');
}

FeatureSet FeatureSet::parse(const QByteArray& bytes, const QString& source)
{
    const Parser parser(source);
    if (bytes.size() > kMaxFileBytes) {
        parser.fail(0, QStringLiteral("%1 bytes is too long for a feature set (at most %2)")
                           .arg(bytes.size())
                           .arg(kMaxFileBytes));
    }
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (bytes.contains('\0') || state.invalidChars > 0) {
        parser.fail(0, QStringLiteral("the file is not text"));
    }
    const QStringList rows = text.split(QLatin1Char('\n'));
    FeatureSet set;
    int format = -1;
    bool inHeader = true;
    bool ended = false;
    Selectors selectors;
    for (int i = 0; i < rows.size(); ++i) {
        const int number = i + 1;
        if (rows.at(i).toUtf8().size() > kMaxLineBytes) {
            parser.fail(number,
                        QStringLiteral("the line is longer than %1 bytes").arg(kMaxLineBytes));
        }
        const QString row = rows.at(i).trimmed();
        if (i == 0) {
            if (row != kMagic) {
                parser.fail(number,
                            QStringLiteral("the file does not start with \"%1\"").arg(kMagic));
            }
            continue;
        }
        if (inHeader) {
            if (row.isEmpty()) {
                inHeader = false;
                continue;
            }
            const int colon = row.indexOf(QLatin1Char(':'));
            const QString key = row.left(colon).trimmed();
            const QString value = row.mid(colon + 1).trimmed();
            if (colon <= 0) {
                parser.fail(number, QStringLiteral("a header line reads Key: Value"));
            } else if (key == QLatin1String("Format")) {
                bool ok = false;
                format = value.toInt(&ok);
                if (!ok || format != kFormatVersion) {
                    parser.fail(number, QStringLiteral("format %1 is not known (this viewer reads "
                                                       "format %2)")
                                            .arg(value)
                                            .arg(kFormatVersion));
                }
            } else if (key == QLatin1String("Vendor")) {
                set.vendor = value;
            } else if (key == QLatin1String("Model")) {
                set.model = value;
            } else if (key == QLatin1String("Serial")) {
                set.serial = value;
            } else if (key == QLatin1String("Time")) {
                set.time = value;
            } else {
                parser.fail(number, QStringLiteral("unknown header '%1'").arg(key));
            }
            continue;
        }
        if (row.isEmpty() || row.startsWith(QLatin1Char('#'))) {
            continue;
        }
        if (ended) {
            parser.fail(number, QStringLiteral("text after %1").arg(kEnd));
        }
        if (row == kEnd) {
            ended = true;
            continue;
        }
        if (row.startsWith(QLatin1Char('[')) && row.endsWith(QLatin1Char(']'))) {
            selectors = parser.block(row, number);
            continue;
        }
        Line line;
        line.lineNumber = number;
        line.selectors = selectors;
        if (!parser.pair(row, number, &line.feature, &line.value, &line.quoted)) {
            parser.fail(number, QStringLiteral("expected Name = Value"));
        }
        set.lines.append(line);
    }
    if (format < 0) {
        parser.fail(0, QStringLiteral("the header has no Format line"));
    }
    if (!ended) {
        parser.fail(0, QStringLiteral("the file is truncated: it has no %1 line").arg(kEnd));
    }
    return set;
}

FeatureSet FeatureSet::read(const QString& fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly)) {
        throw InvalidArgumentException(fileName, QStringLiteral("the file cannot be read"));
    }
    // A device or a fifo has no size: reading one byte past the limit tells.
    const QByteArray bytes = file.read(kMaxFileBytes + 1);
    return parse(bytes, fileName);
}

QByteArray FeatureSet::toText() const
{
    QString out = kMagic + QLatin1Char('\n');
    out += QStringLiteral("Format: %1\n").arg(kFormatVersion);
    out += QStringLiteral("Vendor: %1\n").arg(headerText(vendor));
    out += QStringLiteral("Model: %1\n").arg(headerText(model));
    out += QStringLiteral("Serial: %1\n").arg(headerText(serial));
    out += QStringLiteral("Time: %1\n").arg(headerText(time));
    Selectors current;
    bool first = true;
    for (const Line& line : lines) {
        if (first || line.selectors != current) {
            out += QLatin1Char('\n');
            if (!line.selectors.isEmpty()) {
                QStringList parts;
                for (const auto& s : line.selectors) {
                    parts << s.first + QStringLiteral(" = ") + s.second;
                }
                out += QLatin1Char('[') + parts.join(QStringLiteral(", ")) + QStringLiteral("]\n");
            }
            current = line.selectors;
            first = false;
        }
        const bool quote = line.quoted || needsQuotes(line.value);
        out += line.feature + QStringLiteral(" = ") + (quote ? quoted(line.value) : line.value) +
               QLatin1Char('\n');
    }
    out += QLatin1Char('\n') + kEnd + QLatin1Char('\n');
    return out.toUtf8();
}

QString FeatureSet::qualifiedName(const Line& line)
{
    if (line.selectors.isEmpty()) {
        return line.feature;
    }
    QStringList parts;
    for (const auto& s : line.selectors) {
        parts << s.first + QStringLiteral(" = ") + s.second;
    }
    return line.feature + QStringLiteral(" [") + parts.join(QStringLiteral(", ")) +
           QLatin1Char(']');
}

QVector<FeatureSet::Difference> FeatureSet::compare(const FeatureSet& left, const FeatureSet& right)
{
    QMap<QString, QString> a;
    QMap<QString, QString> b;
    QHash<QString, QString> features;
    for (const Line& line : left.lines) {
        a.insert(qualifiedName(line), line.value);
        features.insert(qualifiedName(line), line.feature);
    }
    for (const Line& line : right.lines) {
        b.insert(qualifiedName(line), line.value);
        features.insert(qualifiedName(line), line.feature);
    }
    QVector<Difference> result;
    auto ia = a.cbegin();
    auto ib = b.cbegin();
    while (ia != a.cend() || ib != b.cend()) {
        Difference d;
        if (ib == b.cend() || (ia != a.cend() && ia.key() < ib.key())) {
            d = {ia.key(), QString(), ia.value(), QString(), Difference::Side::LeftOnly};
            ++ia;
        } else if (ia == a.cend() || ib.key() < ia.key()) {
            d = {ib.key(), QString(), QString(), ib.value(), Difference::Side::RightOnly};
            ++ib;
        } else {
            const bool same = ia.value() == ib.value();
            d = {ia.key(), QString(), ia.value(), ib.value(), Difference::Side::Both};
            ++ia;
            ++ib;
            if (same) {
                continue;
            }
        }
        d.feature = features.value(d.name);
        result.append(d);
    }
    return result;
}

} // namespace Backend
