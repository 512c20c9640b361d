#include "editortestsupport.h"

#include "internal/legacy/hexvalidator.h"
#include "internal/legacy/inteditor.h"

#include <parametercollection/exception.h>

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using namespace ParameterCollection;

namespace {

// A real integer parameter whose snapshots claim another representation: the only way to meet
// a representation that the backend never reports.
class RepresentationOverride : public IIntegerParameter {
    Q_OBJECT
public:
    RepresentationOverride(QSharedPointer<IParameter> real, QString representation)
        : m_real(real), m_integer(qobject_cast<IIntegerParameter*>(real.data())),
          m_representation(std::move(representation))
    {}

    QString getName() const override { return m_real->getName(); }
    QString getFeatureName() const override { return m_real->getFeatureName(); }
    bool isNull() const override { return m_real->isNull(); }
    int getType() const override { return m_real->getType(); }
    QSharedPointer<const ParameterData> getParameterData() const override
    {
        QSharedPointer<ParameterData> data = m_real->getParameterData()->clone();
        data->representation = m_representation;
        return data;
    }
    QString getProperty(const QString& name) const override
    {
        return name == QLatin1String("Representation") ? m_representation
                                                       : m_real->getProperty(name);
    }
    QMap<QString, QString> getProperties() const override { return m_real->getProperties(); }
    void setValue(const QVariant& value) override { m_real->setValue(value); }
    IAdvancedParameterAccess* getAdvancedParameterAccess() override
    {
        return m_real->getAdvancedParameterAccess();
    }
    void addObserver() override { m_real->addObserver(); }
    void removeObserver() override { m_real->removeObserver(); }
    qint64 getValue() const override { return m_integer->getValue(); }
    void setValue(qint64 value) override { m_integer->setValue(value); }
    qint64 getMin() const override { return m_integer->getMin(); }
    qint64 getMax() const override { return m_integer->getMax(); }
    qint64 getInc() const override { return m_integer->getInc(); }

private:
    QSharedPointer<IParameter> m_real;
    IIntegerParameter* m_integer; // not owned
    QString m_representation;
};

} // namespace

class tst_IntEditor : public QObject, private EditorFixture {
    Q_OBJECT

private:
    // What the model does with the editor's data when editing ends.
    static QString write(IntEditor& editor, const QSharedPointer<IParameter>& parameter)
    {
        try {
            parameter->setValue(editor.editorData());
        } catch (const Exception& e) {
            return e.text();
        }
        return QString();
    }

    static void retype(IntEditor& editor, const QString& text)
    {
        editor.selectAll();
        QTest::keyClicks(&editor, text);
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(openCamera()); }
    void init() { openDescriptions(QStringLiteral("integereditors")); }
    void cleanup() { closeDescriptions(); }

    void shouldBeFramelessWithNarrowMargins()
    {
        IntEditor editor;
        QVERIFY(!editor.hasFrame());
        QCOMPARE(editor.contentsMargins(), QMargins(1, 0, 1, 0));
    }

    void shouldShowTheValueAndItsRange_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("plain") << "tree"
                               << "IntPlain"
                               << "42"
                               << "Range: 0..1000";
        QTest::newRow("linear") << "tree"
                                << "IntLinear"
                                << "500"
                                << "Range: 0..1000";
        QTest::newRow("logarithmic") << "tree"
                                     << "IntLog"
                                     << "100"
                                     << "Range: 1..100000";
        QTest::newRow("hexadecimal") << "tree"
                                     << "IntHex"
                                     << "0xBEEF"
                                     << "Range: 0x0..0xffff";
        QTest::newRow("read-only") << "tree"
                                   << "ReadOnlyInt"
                                   << "7"
                                   << "Range: 0..1000";
        QTest::newRow("negative") << "ints"
                                  << "SignedPlain"
                                  << "-5"
                                  << "Range: -100..100";
    }
    void shouldShowTheValueAndItsRange()
    {
        QFETCH(QString, source);
        QFETCH(QString, feature);
        QFETCH(QString, text);
        QFETCH(QString, toolTip);

        IntEditor editor;
        MessageCapture log;
        editor.setEditorData({parameterOf(source, feature), {}});

        QCOMPARE(editor.text(), text);
        // The range comes first; increment and unit follow on lines of their own
        QCOMPARE(editor.toolTip().section(QLatin1Char('\n'), 0, 0), toolTip);
        QVERIFY(editor.hasAcceptableInput());
        QCOMPARE(editor.editorData(), QVariant(text));
        QCOMPARE(log.lines(), QStringList());
    }

    void shouldRefuseTypingIntoAValueThatCannotBeWritten()
    {
        IntEditor editor;
        editor.setEditorData({tree(QStringLiteral("ReadOnlyInt")), {}});
        QVERIFY(editor.isReadOnly());

        retype(editor, QStringLiteral("55"));

        QCOMPARE(editor.text(), QStringLiteral("7"));

        // The same editor loaded with a writable feature takes typing again.
        editor.setEditorData({tree(QStringLiteral("IntPlain")), {}});
        QVERIFY(!editor.isReadOnly());
        retype(editor, QStringLiteral("55"));
        QCOMPARE(editor.text(), QStringLiteral("55"));
    }

    void shouldShowAHexRangeInBase16()
    {
        // Given a "HexNumber" feature with the range 0..255
        IntEditor editor;

        editor.setEditorData({parameter(QStringLiteral("HexByte")), {}});

        // Then the tool tip is the hexadecimal range form filled with 0 and ff
        QCOMPARE(editor.toolTip(), QStringLiteral("Range: 0x%1..0x%2").arg("0", "ff"));
        QCOMPARE(editor.text(), QStringLiteral("0x2A"));
        QVERIFY(qobject_cast<const HexValidator*>(editor.validator()));
    }

    void shouldShowNotReadableForAWriteOnlyInteger()
    {
        IntEditor editor;
        editor.setToolTip(QStringLiteral("old"));

        editor.setEditorData({tree(QStringLiteral("WriteOnly")), {}});

        QCOMPARE(editor.text(), QStringLiteral("<not readable>"));
        QCOMPARE(editor.toolTip(), QString());
        // The placeholder is never taken for a value when editing ends...
        QVERIFY(!editor.hasAcceptableInput());
        // ...while a number typed over it is.
        retype(editor, QStringLiteral("0"));
        QVERIFY(editor.hasAcceptableInput());
        QCOMPARE(editor.editorData(), QVariant(QStringLiteral("0")));
    }

    void shouldClipTheRangeOf64BitIntegersInTheToolTip_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("63 bits") << "TimestampLatchValue"
                                 << "0"
                                 << "Range: 0..2147483647";
        QTest::newRow("signed 64 bits") << "VntTestSignedValue64"
                                        << "0"
                                        << "Range: -2147483648..2147483647";
        QTest::newRow("40 bits in hex") << "VntTestAddress40"
                                        << "0x123456789A"
                                        << "Range: 0x0..0x7fffffff";
    }
    void shouldClipTheRangeOf64BitIntegersInTheToolTip()
    {
        QFETCH(QString, feature);
        QFETCH(QString, text);
        QFETCH(QString, toolTip);

        IntEditor editor;
        editor.setEditorData({parameterOf(QStringLiteral("camera"), feature), {}});

        QCOMPARE(editor.text(), text);
        QCOMPARE(editor.toolTip().section(QLatin1Char('\n'), 0, 0), toolTip);
        // The value itself is beyond 32 bits and still counts as a value.
        QVERIFY(editor.hasAcceptableInput());
    }

    void shouldTakeValuesBeyond32BitsWhereTheParameterDoes()
    {
        const auto parameter =
            parameterOf(QStringLiteral("camera"), QStringLiteral("VntTestAddress40"));
        IntEditor editor;
        editor.setEditorData({parameter, {}});

        retype(editor, QStringLiteral("0xFFFFFFFFFF"));

        QCOMPARE(editor.text(), QStringLiteral("0xFFFFFFFFFF"));
        QVERIFY(editor.hasAcceptableInput());
        QCOMPARE(write(editor, parameter), QString());
        camera()->waitForDevice();
        QCOMPARE(parameter->getParameterData()->value.toLongLong(), 0xFFFFFFFFFFLL);

        retype(editor, QStringLiteral("0x123456789A"));
        QCOMPARE(write(editor, parameter), QString());
        camera()->waitForDevice();
    }

    void shouldRefuseTextThatCannotBeAValueWhileTyping_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("acceptable");
        QTest::newRow("letters in decimal") << "tree"
                                            << "IntPlain"
                                            << "1a2b3"
                                            << "123" << true;
        QTest::newRow("too many digits") << "tree"
                                         << "IntPlain"
                                         << "50000"
                                         << "5000" << false;
        QTest::newRow("sign where no negative fits") << "tree"
                                                     << "IntPlain"
                                                     << "-12"
                                                     << "12" << true;
        QTest::newRow("hex in a decimal feature") << "tree"
                                                  << "IntPlain"
                                                  << "0x10"
                                                  << "010" << true;
        QTest::newRow("negative where it fits") << "ints"
                                                << "SignedPlain"
                                                << "-42"
                                                << "-42" << true;
        QTest::newRow("hex text") << "tree"
                                  << "IntHex"
                                  << "0xz1g2"
                                  << "0x12" << true;
        QTest::newRow("decimal in a hex feature") << "tree"
                                                  << "IntHex"
                                                  << "4660"
                                                  << "4660" << true;
        QTest::newRow("hex beyond the range") << "ints"
                                              << "HexByte"
                                              << "0x1000"
                                              << "0x100" << false;
        QTest::newRow("64-bit decimal") << "camera"
                                        << "VntTestSignedValue64"
                                        << "-12x34"
                                        << "-1234" << true;
        QTest::newRow("64-bit hex") << "camera"
                                    << "VntTestAddress40"
                                    << "0xAbq"
                                    << "0xAb" << true;
    }
    void shouldRefuseTextThatCannotBeAValueWhileTyping()
    {
        QFETCH(QString, source);
        QFETCH(QString, feature);
        QFETCH(QString, typed);
        QFETCH(QString, text);
        QFETCH(bool, acceptable);

        IntEditor editor;
        editor.setEditorData({parameterOf(source, feature), {}});
        const QString shown = editor.text();
        QSignalSpy notices(&editor, &IntEditor::notice);

        retype(editor, typed);

        QCOMPARE(editor.text(), text);
        QCOMPARE(editor.hasAcceptableInput(), acceptable);
        // A refused key is reported, and then the editor shows the value it had again
        if (typed == text) {
            QCoreApplication::processEvents();
            QCOMPARE(notices.count(), 0);
        } else {
            QTRY_VERIFY(notices.count() >= 1);
            QCOMPARE(editor.text(), shown);
        }
    }

    void shouldHandTheTextToTheParameterAsAString_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<qint64>("value");
        QTest::newRow("decimal") << "IntPlain"
                                 << "77" << qint64(77);
        QTest::newRow("hex") << "IntHex"
                             << "0x1234" << qint64(0x1234);
        QTest::newRow("decimal into hex") << "IntHex"
                                          << "300" << qint64(300);
    }
    void shouldHandTheTextToTheParameterAsAString()
    {
        QFETCH(QString, feature);
        QFETCH(QString, typed);
        QFETCH(qint64, value);

        const auto parameter = tree(feature);
        IntEditor editor;
        editor.setEditorData({parameter, {}});
        retype(editor, typed);

        const QVariant data = editor.editorData();

        QCOMPARE(data.userType(), int(QMetaType::QString));
        QCOMPARE(data.toString(), typed);
        QCOMPARE(write(editor, parameter), QString());
        m_tree->waitForDevice();
        QCOMPARE(parameter->getParameterData()->value.toLongLong(), value);
    }

    void shouldShowAddressesAndBooleansPlainly_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("text");
        QTest::newRow("IPv4") << "IpAddress"
                              << "192.168.1.20";
        QTest::newRow("MAC") << "MacAddress"
                             << "00:1A:2B:3C:4D:5E";
        QTest::newRow("boolean") << "BoolInt"
                                 << "1";
    }
    void shouldShowAddressesAndBooleansPlainly()
    {
        QFETCH(QString, feature);
        QFETCH(QString, text);

        // Given an editor that showed a hexadecimal feature before
        IntEditor editor;
        editor.setEditorData({parameter(QStringLiteral("HexByte")), {}});
        QVERIFY(editor.validator());

        editor.setEditorData({parameter(feature), {}});

        QCOMPARE(editor.text(), text);
        QCOMPARE(editor.toolTip(), QString());
        QVERIFY(!editor.validator());
    }

    void shouldWriteTypedAddressesAsNumbers_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("data");
        QTest::addColumn<QString>("shown");
        QTest::newRow("IPv4") << "IpAddress"
                              << "10.0.0.7"
                              << "167772167"
                              << "10.0.0.7";
        QTest::newRow("MAC") << "MacAddress"
                             << "00:1a:2b:3c:4d:60"
                             << "112394521952"
                             << "00:1A:2B:3C:4D:60";
        QTest::newRow("boolean") << "BoolInt"
                                 << "0"
                                 << "0"
                                 << "0";
    }
    void shouldWriteTypedAddressesAsNumbers()
    {
        QFETCH(QString, feature);
        QFETCH(QString, typed);
        QFETCH(QString, data);
        QFETCH(QString, shown);

        const auto address = parameter(feature);
        IntEditor editor;
        editor.setEditorData({address, {}});
        retype(editor, typed);

        QCOMPARE(editor.editorData(), QVariant(data));
        QCOMPARE(write(editor, address), QString());
        m_cases->waitForDevice();
        editor.setEditorData({address, {}});
        QCOMPARE(editor.text(), shown);
    }

    void shouldShowTheIncrementAndUnitInTheToolTip()
    {
        IntEditor editor;
        editor.setEditorData({tree(QStringLiteral("IntLinear")), {}});
        QCOMPARE(editor.toolTip(), QStringLiteral("Range: 0..1000\nIncrement: 10"));
        editor.setEditorData({parameterOf(QStringLiteral("camera"), QStringLiteral("Width")), {}});
        QCOMPARE(editor.toolTip(), QStringLiteral("Range: 16..1920\nIncrement: 16\nUnit: px"));
    }

    void shouldRefuseLettersAndSayWhy()
    {
        IntEditor editor;
        editor.setEditorData({tree(QStringLiteral("IntPlain")), {}});
        QSignalSpy notices(&editor, &IntEditor::notice);
        retype(editor, QStringLiteral("4b"));
        QTRY_COMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("Plain Integer: \"4b\" is not a number, the value stays 42"));
        QCOMPARE(editor.text(), QStringLiteral("42"));
    }

    void shouldRefuseMalformedAddressesAndSayWhy()
    {
        // Given the editor of an IPv4 address
        const auto address = parameter(QStringLiteral("IpAddress"));
        IntEditor editor;
        editor.setEditorData({address, {}});
        const QString shown = editor.text();
        QSignalSpy notices(&editor, &IntEditor::notice);
        // When the user types no address
        retype(editor, QStringLiteral("10.0.300.7"));
        // Then there is nothing to write, the status line hears why and the value is back
        QCOMPARE(editor.editorData(), QVariant());
        QCOMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("IpAddress: \"10.0.300.7\" is not an IPv4 address, the value "
                                "stays %1")
                     .arg(shown));
        QCOMPARE(editor.text(), shown);
    }

    void shouldShowTheValueTheCameraReportsWhenCalledAgain()
    {
        const auto parameter = tree(QStringLiteral("IntPlain"));
        IntEditor editor;
        editor.setEditorData({parameter, {}});
        QSignalSpy edits(&editor, &QLineEdit::textEdited);
        QSignalSpy finished(&editor, &QLineEdit::editingFinished);

        parameter->setValue(QVariant(qint64(99)));
        m_tree->waitForDevice();
        editor.setEditorData({parameter, {}});

        QCOMPARE(editor.text(), QStringLiteral("99"));
        QCOMPARE(edits.count(), 0);
        QCOMPARE(finished.count(), 0);
    }

    void shouldKeepTextTheUserIsTypingWhenTheCameraReportsAgain()
    {
        // Given a focused editor in which the user typed a number
        const auto parameter = tree(QStringLiteral("IntPlain"));
        IntEditor editor;
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        editor.activateWindow();
        editor.setFocus();
        QTRY_VERIFY(editor.hasFocus());
        editor.setEditorData({parameter, {}});
        retype(editor, QStringLiteral("123"));

        // When a refresh brings another value
        parameter->setValue(QVariant(qint64(99)));
        m_tree->waitForDevice();
        editor.setEditorData({parameter, {}});

        // Then the typed text stays
        QCOMPARE(editor.text(), QStringLiteral("123"));

        // And once the user is done, refreshes show the camera's value again
        editor.clearFocus();
        editor.setEditorData({parameter, {}});
        QCOMPARE(editor.text(), QStringLiteral("99"));
    }

    void shouldLogAParameterThatIsNoInteger_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::newRow("float") << "FloatPlain";
        QTest::newRow("boolean") << "BoolFeat";
        QTest::newRow("string") << "StrFeat";
    }
    void shouldLogAParameterThatIsNoInteger()
    {
        QFETCH(QString, feature);
        IntEditor editor;
        editor.setText(QStringLiteral("untouched"));
        const QStringList log = logOfLoading(editor, {tree(feature), {}});

        QCOMPARE(log,
                 QStringList{QStringLiteral("@CameraDevice/%1 is called with non-integer node????")
                                 .arg(feature)});
        QCOMPARE(editor.text(), QStringLiteral("untouched"));
    }

    void shouldSurviveAMissingParameter()
    {
        IntEditor editor;
        const QStringList log = logOfLoading(editor, {});

        QCOMPARE(log, QStringList{QStringLiteral(" is called with non-integer node????")});
        QCOMPARE(editor.text(), QString());
    }

    void shouldLogAnUnexpectedRepresentationAndChangeNothing()
    {
        IntEditor editor;
        editor.setEditorData({tree(QStringLiteral("IntPlain")), {}});
        const QValidator* validator = editor.validator();
        auto odd = QSharedPointer<RepresentationOverride>::create(tree(QStringLiteral("IntHex")),
                                                                  QStringLiteral("Fancy"));
        const QStringList log = logOfLoading(editor, {odd, {}});

        QCOMPARE(log, QStringList{QStringLiteral("Unexpected representation.")});
        QCOMPARE(editor.text(), QStringLiteral("42"));
        QCOMPARE(editor.toolTip(), QStringLiteral("Range: 0..1000"));
        QCOMPARE(editor.validator(), validator);
    }

    void shouldKeepOneValidatorWhileTheRangeStaysTheSame()
    {
        const auto intHex = tree(QStringLiteral("IntHex"));
        IntEditor editor;
        editor.setEditorData({intHex, {}});
        const QValidator* first = editor.validator();

        editor.setEditorData({intHex, {}});
        editor.setEditorData({intHex, {}});

        QCOMPARE(editor.validator(), first);
        QCOMPARE(editor.findChildren<QValidator*>().size(), 1);

        // A different range gets a validator of its own, and the old one goes.
        editor.setEditorData({parameter(QStringLiteral("HexByte")), {}});
        QCOMPARE(editor.findChildren<QValidator*>().size(), 1);
        auto* hex = qobject_cast<const HexValidator*>(editor.validator());
        QVERIFY(hex);
        QCOMPARE(hex->top(), 255);
    }
};

QTEST_MAIN(tst_IntEditor)
#include "tst_inteditor.moc"
