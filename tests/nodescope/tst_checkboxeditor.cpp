#include "editortestsupport.h"

#include "internal/legacy/checkboxeditor.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QtTest>

using namespace ParameterCollection;

namespace {

// Where a click toggles the box: its indicator, wherever the layout stretched the widget.
QPoint clickPoint(QCheckBox* box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
}

bool boolValue(const QSharedPointer<IParameter>& parameter)
{
    return parameter->getParameterData()->value.toBool();
}

} // namespace

class tst_CheckBoxEditor : public QObject, private EditorFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openDescriptions(QStringLiteral("editorstates")); }
    void cleanup() { closeDescriptions(); }

    void shouldShowTheBooleanValue_data()
    {
        QTest::addColumn<bool>("value");
        QTest::newRow("true") << true;
        QTest::newRow("false") << false;
    }

    void shouldShowTheBooleanValue()
    {
        QFETCH(bool, value);
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        row.parameter()->setValue(QVariant(value));
        m_tree->waitForDevice();
        CheckBoxEditor editor;
        editor.setChecked(!value);

        editor.setEditorData(row.editorData());

        QCOMPARE(editor.isChecked(), value);
        QVERIFY(editor.isEnabled());
        QCOMPARE(editor.editorData(), QVariant(value ? QStringLiteral("1") : QStringLiteral("0")));
    }

    void shouldHandBackOneOrZeroAsText()
    {
        CheckBoxEditor editor;
        editor.setChecked(true);
        QCOMPARE(editor.editorData(), QVariant(QStringLiteral("1")));
        QCOMPARE(editor.editorData().type(), QVariant::String);
        editor.setChecked(false);
        QCOMPARE(editor.editorData(), QVariant(QStringLiteral("0")));
    }

    void shouldWriteTheToggledValueAtOnceWhenClicked()
    {
        // Given a box showing BoolFeat (true)
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        CheckBoxEditor editor;
        row.attach(editor);
        QSignalSpy edited(&editor, &CheckBoxEditor::valueEdited);
        QSignalSpy changed(row.parameter().data(), &IParameter::parameterDataChanged);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));

        // When the user clicks it
        QTest::mouseClick(&editor, Qt::LeftButton, Qt::NoModifier, clickPoint(&editor));

        // Then it is unchecked, committed at once, and the device holds false
        QVERIFY(!editor.isChecked());
        QCOMPARE(edited.count(), 1);
        QCOMPARE(row.commitResults(), QList<bool>{true});
        m_tree->waitForDevice();
        QVERIFY(changed.count() >= 1);
        QVERIFY(!boolValue(row.parameter()));

        // And a second click turns it back on
        QTest::mouseClick(&editor, Qt::LeftButton, Qt::NoModifier, clickPoint(&editor));
        m_tree->waitForDevice();
        QVERIFY(editor.isChecked());
        QVERIFY(boolValue(row.parameter()));
        QCOMPARE(row.commitResults(), (QList<bool>{true, true}));
    }

    void shouldWriteTheToggledValueWhenTheSpaceKeyReachesIt()
    {
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        CheckBoxEditor editor;
        row.attach(editor);

        QTest::keyClick(&editor, Qt::Key_Space);

        QVERIFY(!editor.isChecked());
        m_tree->waitForDevice();
        QVERIFY(!boolValue(row.parameter()));
    }

    void shouldNotReportLoadedDataAsAnEdit()
    {
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        CheckBoxEditor editor;
        QSignalSpy edited(&editor, &CheckBoxEditor::valueEdited);

        editor.setEditorData(row.editorData());
        row.parameter()->setValue(QVariant(false));
        m_tree->waitForDevice();
        editor.setEditorData(row.editorData());

        QVERIFY(!editor.isChecked());
        QCOMPARE(edited.count(), 0);
    }

    void shouldShowAReadOnlyBooleanInADisabledBox()
    {
        FeatureRow row(m_cases, QStringLiteral("ReadOnlyBool"));
        QVERIFY(!row.parameter()->getParameterData()->writable);
        CheckBoxEditor editor;

        editor.setEditorData(row.editorData());

        QVERIFY(editor.isChecked());
        QVERIFY(!editor.isEnabled());
    }

    void shouldNotToggleAReadOnlyBooleanByClicksOrKeys()
    {
        // Given a read-only boolean (true) in its box
        FeatureRow row(m_cases, QStringLiteral("ReadOnlyBool"));
        CheckBoxEditor editor;
        row.attach(editor);
        QSignalSpy edited(&editor, &CheckBoxEditor::valueEdited);
        QSignalSpy toggled(&editor, &QAbstractButton::toggled);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));

        // When the user clicks it and presses space on it
        QTest::mouseClick(&editor, Qt::LeftButton, Qt::NoModifier, clickPoint(&editor));
        QTest::keyClick(&editor, Qt::Key_Space);

        // Then nothing changes and nothing is committed
        QVERIFY(editor.isChecked());
        QCOMPARE(toggled.count(), 0);
        QCOMPARE(edited.count(), 0);
        QCOMPARE(row.commitResults(), QList<bool>());
        m_cases->waitForDevice();
        QVERIFY(boolValue(row.parameter()));
    }

    void shouldFollowTheWritableFlagWhenTheBooleanIsLockedAndUnlocked()
    {
        FeatureRow row(m_cases, QStringLiteral("LockableBool"));
        CheckBoxEditor editor;
        editor.setEditorData(row.editorData());
        QVERIFY(editor.isEnabled());

        setAndRefresh(QStringLiteral("Lock"), QVariant(1), row.parameter());
        QVERIFY(row.parameter()->getParameterData()->locked);
        editor.setEditorData(row.editorData());
        QVERIFY(!editor.isEnabled());
        QVERIFY(editor.isChecked());

        setAndRefresh(QStringLiteral("Lock"), QVariant(0), row.parameter());
        editor.setEditorData(row.editorData());
        QVERIFY(editor.isEnabled());
    }

    void shouldNeverTakeTheFocus()
    {
        // Given a window whose line edit has the focus
        FocusElsewhere<CheckBoxEditor> window;
        CheckBoxEditor* editor = window.editor;
        QLineEdit* other = window.other;
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        editor->setEditorData(row.editorData());
        QVERIFY(window.show());

        // When the box is clicked and the user tabs through the window
        QTest::mouseClick(editor, Qt::LeftButton, Qt::NoModifier, clickPoint(editor));
        QVERIFY(other->hasFocus());
        QTest::keyClick(other, Qt::Key_Tab);

        // Then the click toggled it, but the focus never went to it
        QCOMPARE(editor->focusPolicy(), Qt::NoFocus);
        QVERIFY(!editor->isChecked());
        QVERIFY(!editor->hasFocus());
    }

    void shouldLeaveTheCheckedStateForANonBooleanParameter()
    {
        FeatureRow row(m_tree, QStringLiteral("IntPlain"));
        CheckBoxEditor editor;
        editor.setChecked(true);
        const QStringList log = logOfLoading(editor, row.editorData());

        QVERIFY(editor.isChecked());
        QCOMPARE(log, QStringList());
    }

    void shouldKeepItsStateWithoutThrowingWhenTheDeviceIsGone()
    {
        const AbstractItemEditor::EditorData data{parameter(QStringLiteral("ReadOnlyBool")), {}};
        CheckBoxEditor editor;
        editor.setEditorData(data);
        QVERIFY(editor.isChecked());
        QVERIFY(!editor.isEnabled());

        m_cases.reset(); // the device closes; its parameters now throw
        editor.setEditorData(data);
        editor.setEditorData(AbstractItemEditor::EditorData{});

        QVERIFY(editor.isChecked());
        QVERIFY(!editor.isEnabled());
    }
};

QTEST_MAIN(tst_CheckBoxEditor)
#include "tst_checkboxeditor.moc"
