#include "testsupport.h"

#include "internal/legacy/checkboxeditor.h"
#include "internal/legacy/featuretreemodel.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QVBoxLayout>
#include <QtTest>

using namespace ParameterCollection;

namespace {

// A feature's row in a real feature tree model, and what the delegate does when an editor
// commits: hand editorData() to the model's setData for the value column.
class FeatureRow {
public:
    FeatureRow(const QSharedPointer<IParameterCollection>& collection, const QString& feature)
        : m_collection(collection)
    {
        m_model.addParameterCollection(collection, QStringLiteral("Camera"),
                                       QStringLiteral("@CameraDevice"), false);
        m_index =
            m_model.findItemByFullName(QStringLiteral("@CameraDevice/") + feature, nullptr, 1);
        m_parameter = collection->getParameter(QStringLiteral("@CameraDevice/") + feature);
    }

    QSharedPointer<IParameter> parameter() const { return m_parameter; }
    AbstractItemEditor::EditorData editorData() const { return {m_parameter, m_collection}; }
    // Every user change commits at once, as the delegate wires it.
    void commitOnEdit(CheckBoxEditor& editor)
    {
        QObject::connect(&editor, &CheckBoxEditor::valueEdited, &m_model, [this, &editor] {
            m_results << m_model.setData(m_index, editor.editorData(), Qt::EditRole);
        });
    }
    const QList<bool>& commitResults() const { return m_results; }

private:
    QSharedPointer<IParameterCollection> m_collection;
    FeatureTreeModel m_model;
    QModelIndex m_index;
    QSharedPointer<IParameter> m_parameter;
    QList<bool> m_results;
};

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

class tst_CheckBoxEditor : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_tree;
    QSharedPointer<Backend::DeviceParameterCollection> m_states;

private Q_SLOTS:
    void init()
    {
        m_tree = openTestDescription(QStringLiteral("tree"));
        m_states = openTestDescription(QStringLiteral("editorstates"));
    }

    void cleanup()
    {
        m_tree.reset();
        m_states.reset();
    }

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
        editor.setEditorData(row.editorData());
        row.commitOnEdit(editor);
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
        editor.setEditorData(row.editorData());
        row.commitOnEdit(editor);

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
        FeatureRow row(m_states, QStringLiteral("ReadOnlyBool"));
        QVERIFY(!row.parameter()->getParameterData()->writable);
        CheckBoxEditor editor;

        editor.setEditorData(row.editorData());

        QVERIFY(editor.isChecked());
        QVERIFY(!editor.isEnabled());
    }

    void shouldNotToggleAReadOnlyBooleanByClicksOrKeys()
    {
        // Given a read-only boolean (true) in its box
        FeatureRow row(m_states, QStringLiteral("ReadOnlyBool"));
        CheckBoxEditor editor;
        editor.setEditorData(row.editorData());
        row.commitOnEdit(editor);
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
        m_states->waitForDevice();
        QVERIFY(boolValue(row.parameter()));
    }

    void shouldFollowTheWritableFlagWhenTheBooleanIsLockedAndUnlocked()
    {
        FeatureRow row(m_states, QStringLiteral("LockableBool"));
        const auto lock = m_states->getParameter(QStringLiteral("@CameraDevice/Lock"));
        CheckBoxEditor editor;
        editor.setEditorData(row.editorData());
        QVERIFY(editor.isEnabled());

        lock->setValue(QVariant(1));
        m_states->waitForDevice();
        row.parameter()->getAdvancedParameterAccess()->refreshParameterData();
        m_states->waitForDevice();
        QVERIFY(row.parameter()->getParameterData()->locked);
        editor.setEditorData(row.editorData());
        QVERIFY(!editor.isEnabled());
        QVERIFY(editor.isChecked());

        lock->setValue(QVariant(0));
        m_states->waitForDevice();
        row.parameter()->getAdvancedParameterAccess()->refreshParameterData();
        m_states->waitForDevice();
        editor.setEditorData(row.editorData());
        QVERIFY(editor.isEnabled());
    }

    void shouldNeverTakeTheFocus()
    {
        // Given a window whose line edit has the focus
        QWidget window;
        auto* other = new QLineEdit(&window);
        auto* editor = new CheckBoxEditor(&window);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(other);
        layout->addWidget(editor);
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        editor->setEditorData(row.editorData());
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
        QTRY_VERIFY(other->hasFocus());

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
        MessageCapture log;

        editor.setEditorData(row.editorData());

        QVERIFY(editor.isChecked());
        QCOMPARE(log.lines(), QStringList());
    }

    void shouldKeepItsStateWithoutThrowingWhenTheDeviceIsGone()
    {
        auto collection = openTestDescription(QStringLiteral("editorstates"));
        const AbstractItemEditor::EditorData data{
            collection->getParameter(QStringLiteral("@CameraDevice/ReadOnlyBool")), {}};
        CheckBoxEditor editor;
        editor.setEditorData(data);
        QVERIFY(editor.isChecked());
        QVERIFY(!editor.isEnabled());

        collection.reset(); // the device closes; its parameters now throw
        editor.setEditorData(data);
        editor.setEditorData(AbstractItemEditor::EditorData{});

        QVERIFY(editor.isChecked());
        QVERIFY(!editor.isEnabled());
    }
};

QTEST_MAIN(tst_CheckBoxEditor)
#include "tst_checkboxeditor.moc"
