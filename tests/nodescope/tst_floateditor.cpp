#include "editortestsupport.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/floateditor.h"

#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

using namespace ParameterCollection;

class tst_FloatEditor : public QObject, private EditorFixture {
    Q_OBJECT

private:
    // An editor for `feature` as the delegate makes it, with the alias key of that feature.
    FloatEditor* open(const QString& feature, const QString& aliasKey = QString())
    {
        auto* editor = new FloatEditor(
            m_window.get(), aliasKey.isNull() ? fullFeatureName(feature) + "/Alias" : aliasKey);
        editor->resize(200, 24);
        return showLikeTheDelegate(editor, {parameter(feature), m_cases});
    }

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        openCases(QStringLiteral("floatalias"));
        openWindow(300);
    }
    void cleanup() { closeDescriptions(); }

    void shouldShowTheValueWithUnitNotationAndPrecision_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("text");
        QTest::newRow("fixed, one decimal") << "LogNegative"
                                            << "1.0 dB";
        QTest::newRow("microseconds") << "Plain" << QStringLiteral("100.0 µs");
        QTest::newRow("two decimals") << "Rounded"
                                      << "12.30 dB";
        QTest::newRow("scientific") << "Tiny"
                                    << "5.000e-04 s";
        QTest::newRow("automatic, no unit") << "Ratio"
                                            << "0.25";
    }
    void shouldShowTheValueWithUnitNotationAndPrecision()
    {
        QFETCH(QString, feature);
        QFETCH(QString, text);

        FloatEditor* editor = open(feature);

        QCOMPARE(editor->spinBox()->text(), text);
        QCOMPARE(editor->editorData(), parameter(feature)->getParameterData()->value);
        QCOMPARE(editor->editorData().type(), QVariant::Double);
    }

    void shouldShowTheRangeAsToolTip_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("no increment") << "Plain" << QString::fromUtf8("Range: 1..1000\nUnit: µs");
        QTest::newRow("increment") << "Stepped"
                                   << "Range: 0..100 (Increment: 0.5)\nUnit: ms";
        QTest::newRow("negative minimum") << "LogNegative"
                                          << "Range: -10..10\nUnit: dB";
        QTest::newRow("small numbers") << "Tiny"
                                       << "Range: 0.000001..0.01\nUnit: s";
    }
    void shouldShowTheRangeAsToolTip()
    {
        QFETCH(QString, feature);
        QFETCH(QString, toolTip);

        FloatEditor* editor = open(feature);

        QCOMPARE(editor->toolTip(), toolTip);
        QCOMPARE(editor->spinBox()->toolTip(), toolTip);
    }

    void shouldStepByTheIncrementOrAStepDerivedFromTheRange_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<double>("step");
        QTest::newRow("increment 0.5") << "Stepped" << 0.5;
        QTest::newRow("1..1000 without increment") << "Plain" << 10.0;
        QTest::newRow("-10..10 without increment") << "LogNegative" << 0.1;
        QTest::newRow("0..1 without increment") << "Ratio" << 0.01;
        QTest::newRow("1e-6..1e-2 without increment") << "Tiny" << 1e-4;
    }
    void shouldStepByTheIncrementOrAStepDerivedFromTheRange()
    {
        QFETCH(QString, feature);
        QFETCH(double, step);
        FloatEditor* editor = open(feature);
        const double before = editor->spinBox()->value();
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        QTest::keyClick(editor->spinBox(), Qt::Key_Up);

        QCOMPARE(editor->spinBox()->singleStep(), step);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), before + step);
        QCOMPARE(deviceValue(feature).toDouble(), before + step);
    }

    void shouldCommitATypedValueOnEnter()
    {
        // Given an editor on Plain (100 µs)
        FloatEditor* editor = open(QStringLiteral("Plain"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        // When the user types 250 and presses Enter
        typeOver(editor->spinBox(), QStringLiteral("250"));
        QCOMPARE(changed.count(), 0);
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);

        // Then the value is committed once and reaches the device
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), 250.0);
        QCOMPARE(editor->editorData(), QVariant(250.0));
        QCOMPARE(deviceValue(QStringLiteral("Plain")), QVariant(250.0));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("250.0 µs"));
    }

    void shouldTakeTheTypingBackOnEscape()
    {
        FloatEditor* editor = open(QStringLiteral("Plain"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);
        typeOver(editor->spinBox(), QStringLiteral("250"));

        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);

        QCOMPARE(editor->spinBox()->text(), QStringLiteral("100.0 µs"));
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(deviceValue(QStringLiteral("Plain")), QVariant(100.0));
    }

    void shouldStepByTheIncrementWithArrowKeysAndTheWheel()
    {
        FloatEditor* editor = open(QStringLiteral("Stepped"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        QTest::keyClick(editor->spinBox(), Qt::Key_Up);
        QCOMPARE(deviceValue(QStringLiteral("Stepped")), QVariant(10.5));
        QVERIFY(giveFocus(editor->spinBox()));
        QVERIFY(turnWheel(editor->spinBox(), 120));
        QCOMPARE(deviceValue(QStringLiteral("Stepped")), QVariant(11.0));
        QTest::keyClick(editor->spinBox(), Qt::Key_Down);
        QTest::keyClick(editor->spinBox(), Qt::Key_Down);

        QCOMPARE(changed.count(), 4);
        QCOMPARE(deviceValue(QStringLiteral("Stepped")), QVariant(10.0));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("10.0 ms"));
    }

    void shouldIgnoreTheWheelWhileTheEditorHasNoFocus()
    {
        FloatEditor* editor = open(QStringLiteral("Stepped"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        QVERIFY(!turnWheel(editor->spinBox(), 120));

        QCOMPARE(changed.count(), 0);
        QCOMPARE(deviceValue(QStringLiteral("Stepped")), QVariant(10.0));
    }

    void shouldNotEmitWhileDataIsLoaded()
    {
        // Given an editor on Plain
        FloatEditor* editor = open(QStringLiteral("Plain"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        // When the device's value, range source and all are loaded again and again
        parameter(QStringLiteral("Plain"))->setValue(QVariant(555.5));
        m_cases->waitForDevice();
        editor->setEditorData({parameter(QStringLiteral("Stepped")), m_cases});
        editor->setEditorData({parameter(QStringLiteral("Plain")), m_cases});

        // Then the editor shows the data and never announces a change
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("555.5 µs"));
        QCOMPARE(changed.count(), 0);
    }

    void shouldShowTheValueTheCameraAnswered()
    {
        // Given a feature whose device keeps tenths
        FloatEditor* editor = open(QStringLiteral("Rounded"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        // When 12.34 is typed and committed
        typeAndEnter(editor->spinBox(), QStringLiteral("12.34"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), 12.34);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("12.34 dB"));

        // Then, once the device answers, the editor shows what the device holds
        QCOMPARE(deviceValue(QStringLiteral("Rounded")), QVariant(12.3));
        QTRY_COMPARE(editor->spinBox()->text(), QStringLiteral("12.30 dB"));
        QCOMPARE(editor->spinBox()->value(), 12.3);
        QCOMPARE(changed.count(), 1);
    }

    void shouldEditTheBuiltInCamerasExposureTime()
    {
        // Given the built-in camera's exposure time in a plain float editor
        const auto camera = openSimulatedCamera();
        const QString name = fullFeatureName(QStringLiteral("ExposureTime"));
        const auto exposure = camera->collection->getParameter(name);
        QVERIFY(exposure);
        auto* editor =
            showLikeTheDelegate(new FloatEditor(m_window.get(), name + QStringLiteral("/Alias")),
                                {exposure, camera->collection});
        QVERIFY(!editor->alias());
        QCOMPARE(editor->spinBox()->suffix(), QStringLiteral(" µs"));
        QCOMPARE(editor->toolTip(), QString::fromUtf8("Range: 20..10000000\nUnit: µs"));
        QSignalSpy answered(exposure.data(), &IParameter::parameterDataChanged);

        // When 1234.56 is typed and committed
        typeAndEnter(editor->spinBox(), QStringLiteral("1234.56"));

        // Then the camera holds it and the editor shows it at the feature's precision
        QTRY_COMPARE(exposure->getParameterData()->value, QVariant(1234.56));
        QVERIFY(answered.count() >= 1);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("1234.6 µs"));
        delete editor;
    }

    void shouldFollowTheAliasWhereOneExists()
    {
        // Given Offset, whose alias Offset/Alias exists
        const QString aliasName = fullFeatureName(QStringLiteral("Offset/Alias"));
        QVERIFY(parameter(QStringLiteral("Offset/Alias")));
        FloatEditor* editor = open(QStringLiteral("Offset"));
        QVERIFY(editor->alias());
        QCOMPARE(editor->alias()->getName(), aliasName);

        // Then the alias is shown
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("128 LSB"));
        QCOMPARE(editor->toolTip(), QStringLiteral("Range: 0..255\nUnit: LSB"));

        // When the user types 200 and presses Enter
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);
        typeAndEnter(editor->spinBox(), QStringLiteral("200"));

        // Then the alias is written, the feature is not, and the model has nothing to write
        QCOMPARE(changed.count(), 1);
        QCOMPARE(deviceValue(QStringLiteral("Offset/Alias")), QVariant(200.0));
        QCOMPARE(deviceValue(QStringLiteral("Offset")), QVariant(10.0));
        QCOMPARE(editor->editorData(), QVariant(10.0));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("200 LSB"));
    }

    void shouldKeepUpWithTheAliasWhenTheDeviceChangesIt()
    {
        FloatEditor* editor = open(QStringLiteral("Offset"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        parameter(QStringLiteral("Offset/Alias"))->setValue(QVariant(64.0));
        m_cases->waitForDevice();

        QTRY_COMPARE(editor->spinBox()->text(), QStringLiteral("64 LSB"));
        QCOMPARE(changed.count(), 0);
    }

    void shouldEditTheFeatureItselfWhereNoAliasExists()
    {
        QVERIFY(!parameter(QStringLiteral("Plain/Alias")));

        FloatEditor* editor = open(QStringLiteral("Plain"));

        QVERIFY(!editor->alias());
        QCOMPARE(editor->aliasKey(), fullFeatureName(QStringLiteral("Plain/Alias")));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("100.0 µs"));
    }

    void shouldLogAndIgnoreANonFloatAlias()
    {
        MessageCapture messages;

        FloatEditor* editor =
            open(QStringLiteral("Plain"), fullFeatureName(QStringLiteral("Count")));

        QCOMPARE(messages.lines(), QStringList{QStringLiteral(
                                       "@CameraDevice/Count is called with non-float node????")});
        QVERIFY(!editor->alias());
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("100.0 µs"));
    }

    void shouldLogAndIgnoreANonFloatParameter()
    {
        // Given an editor showing Plain
        FloatEditor* editor = open(QStringLiteral("Plain"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);

        // When it is given the integer Count
        const QStringList log =
            logOfLoading(*editor, {parameter(QStringLiteral("Count")), m_cases});

        // Then that is logged and the editor stays as it was
        QCOMPARE(log, QStringList{
                          QStringLiteral("@CameraDevice/Count is called with non-float node????")});
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("100.0 µs"));
        QCOMPARE(editor->editorData(), QVariant(100.0));
        QCOMPARE(changed.count(), 0);
    }

    void shouldLogAndIgnoreAMissingParameter()
    {
        FloatEditor editor(nullptr, QString());

        QCOMPARE(logOfLoading(editor, {}),
                 QStringList{QStringLiteral(" is called with non-float node????")});
    }

    void shouldShowThatAWriteOnlyFeatureCannotBeRead()
    {
        FloatEditor* editor = open(QStringLiteral("WriteOnlyFloat"));

        QCOMPARE(editor->spinBox()->text(), QStringLiteral("<not readable>"));
        QVERIFY(editor->isEnabled());
    }

    void shouldDisableAReadOnlyFeature()
    {
        FloatEditor* editor = open(QStringLiteral("ReadOnlyFloat"));

        QVERIFY(!editor->isEnabled());
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("3.5 V"));
    }

    void shouldNotOverwriteTypingWhenNewDataArrives()
    {
        // Given the user typing into Plain's editor
        FloatEditor* editor = open(QStringLiteral("Plain"));
        QSignalSpy changed(editor, &FloatEditor::boxValueChanged);
        typeOver(editor->spinBox(), QStringLiteral("300"));

        // When the device reports a new value meanwhile
        parameter(QStringLiteral("Plain"))->setValue(QVariant(55.0));
        m_cases->waitForDevice();

        // Then the typing stays; Escape drops it and shows the device's value
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("300 µs"));
        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("55.0 µs"));
        QCOMPARE(changed.count(), 0);
    }

    void shouldKeepEnterAndEscapeInsideTheEditor()
    {
        // The delegate's filter sits on the editor widget: it must not see these keys.
        FloatEditor* editor = open(QStringLiteral("Plain"));

        QCOMPARE(keysReaching(editor, editor->spinBox(), {Qt::Key_Escape, Qt::Key_Enter}),
                 QList<int>());
    }
};

QTEST_MAIN(tst_FloatEditor)
#include "tst_floateditor.moc"
