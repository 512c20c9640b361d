#include "editortestsupport.h"

#include "internal/legacy/enumeditor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

using namespace ParameterCollection;

namespace {

// The entries the box lists: shown texts, or symbolic names in Qt::UserRole.
QStringList itemsOf(const QComboBox& box, int role)
{
    QStringList items;
    for (int i = 0; i < box.count(); ++i) {
        items << box.itemData(i, role).toString();
    }
    return items;
}

QStringList itemTexts(const QComboBox& box)
{
    return itemsOf(box, Qt::DisplayRole);
}

QStringList itemNames(const QComboBox& box)
{
    return itemsOf(box, Qt::UserRole);
}

// The entries as the parameter data lists them, display name or symbolic name.
QStringList entriesOf(const QSharedPointer<IParameter>& parameter,
                      QString EnumParameterData::Entry::*field)
{
    QStringList entries;
    const auto data = parameter->getParameterData().staticCast<const EnumParameterData>();
    for (const auto& entry : data->entries) {
        entries << entry.*field;
    }
    return entries;
}

QStringList dataTexts(const QSharedPointer<IParameter>& parameter)
{
    return entriesOf(parameter, &EnumParameterData::Entry::displayName);
}

QStringList dataNames(const QSharedPointer<IParameter>& parameter)
{
    return entriesOf(parameter, &EnumParameterData::Entry::name);
}

// Arrow keys from one row of a list to another.
void arrowTo(QWidget* target, int from, int to)
{
    for (int row = from; row != to; row += (to > from ? 1 : -1)) {
        QTest::keyClick(target, to > from ? Qt::Key_Down : Qt::Key_Up);
    }
}

} // namespace

class tst_EnumEditor : public QObject, private EditorFixture {
    Q_OBJECT

private:
    static QString value(const QSharedPointer<IParameter>& parameter)
    {
        return parameter->getParameterData()->value.toString();
    }
    // Shows the box and opens its popup; false unless the list shows.
    static bool showWithOpenPopup(EnumEditor& editor)
    {
        editor.show();
        if (!QTest::qWaitForWindowExposed(&editor)) {
            return false;
        }
        editor.showPopup();
        return QTest::qWaitFor([&editor] { return editor.view()->isVisible(); });
    }

private Q_SLOTS:
    void init() { openDescriptions(QStringLiteral("editorstates")); }
    void cleanup() { closeDescriptions(); }

    void shouldBeANonEditableComboBoxWithTheMarginStyleSheet()
    {
        EnumEditor editor;
        QVERIFY(!editor.isEditable());
        QCOMPARE(editor.styleSheet(),
                 QStringLiteral("margin-left:1px; margin-right:1px; margin-top:1px; "
                                "margin-bottom:1px; padding-left: 4px;"));
        QVERIFY(!editor.watchedPopup());
    }

    void shouldListTheEntriesInOrderWithDisplayNamesAndSymbolicNames()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;

        editor.setEditorData(row.editorData());

        QCOMPARE(itemTexts(editor), dataTexts(row.parameter()));
        QCOMPARE(itemNames(editor), dataNames(row.parameter()));
        QCOMPARE(editor.count(), 2);
        QCOMPARE(editor.itemData(editor.findText(QStringLiteral("Switched Off"))).toString(),
                 QStringLiteral("Off"));
        QCOMPARE(editor.itemData(editor.findText(QStringLiteral("Switched On"))).toString(),
                 QStringLiteral("On"));
    }

    void shouldMakeTheCurrentValueTheCurrentEntryAndHandItsSymbolicNameBack()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        MessageCapture log;

        editor.setEditorData(row.editorData());

        QCOMPARE(editor.currentIndex(), dataNames(row.parameter()).indexOf(QStringLiteral("On")));
        QCOMPARE(editor.currentText(), QStringLiteral("Switched On"));
        QCOMPARE(editor.editorData(), QVariant(QStringLiteral("On")));
        QVERIFY(editor.isEnabled());
        QCOMPARE(log.lines(), QStringList());
    }

    void shouldShowAnEmptyBoxAndLogWhenTheValueMatchesNoEntry_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("currentValue");
        QTest::addColumn<QStringList>("offered");
        QTest::newRow("register value without an entry")
            << "OrphanMode"
            << "5" << QStringList{"Low Gain", "High Gain"};
        QTest::newRow("current entry not available") << "TriggerMode"
                                                     << "Triggered" << QStringList{"Free Run"};
    }

    void shouldShowAnEmptyBoxAndLogWhenTheValueMatchesNoEntry()
    {
        QFETCH(QString, feature);
        QFETCH(QString, currentValue);
        QFETCH(QStringList, offered);
        FeatureRow row(m_cases, feature);
        QCOMPARE(value(row.parameter()), currentValue);
        EnumEditor editor;
        MessageCapture log;

        editor.setEditorData(row.editorData());

        QCOMPARE(editor.currentIndex(), -1);
        QCOMPARE(editor.currentText(), QString());
        QCOMPARE(itemTexts(editor), dataTexts(row.parameter()));
        QStringList shown = itemTexts(editor);
        shown.sort();
        offered.sort();
        QCOMPARE(shown, offered);
        QVERIFY(!editor.editorData().isValid());
        QCOMPARE(log.lines(), QStringList{QStringLiteral(":  @CameraDevice/") + feature +
                                          QStringLiteral(" . No entry in the combo box matches "
                                                         "the current value  ") +
                                          currentValue});
    }

    void shouldNeverWriteAValueTheUserDidNotChoose()
    {
        // Given an enumeration whose value matches no entry
        FeatureRow row(m_cases, QStringLiteral("OrphanMode"));
        EnumEditor editor;
        editor.setEditorData(row.editorData());
        QSignalSpy changed(row.parameter().data(), &IParameter::parameterDataChanged);

        // When the view commits the editor without the user having picked anything
        const bool written = row.commit(editor);
        m_cases->waitForDevice();

        // Then the model refuses and the device keeps its value
        QVERIFY(!written);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(value(row.parameter()), QStringLiteral("5"));
    }

    void shouldWriteTheEntryPickedFromThePopupWithTheKeyboard()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        row.attach(editor);
        QSignalSpy edited(&editor, &EnumEditor::valueEdited);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));

        // When the user opens the popup with the mouse, moves up one entry and presses Enter
        QTest::mouseClick(&editor, Qt::LeftButton);
        QTRY_VERIFY(editor.view()->isVisible());
        arrowTo(editor.view(), editor.currentIndex(),
                editor.findText(QStringLiteral("Switched Off")));
        QTest::keyClick(editor.view(), Qt::Key_Return);

        // Then the popup closes, the choice is committed at once and reaches the device
        QTRY_VERIFY(!editor.view()->isVisible());
        QCOMPARE(edited.count(), 1);
        QCOMPARE(row.commitResults(), QList<bool>{true});
        m_tree->waitForDevice();
        QCOMPARE(value(row.parameter()), QStringLiteral("Off"));
        QCOMPARE(row.parameter()->getParameterData()->displayText, QStringLiteral("Switched Off"));
    }

    void shouldWriteAnEntryPickedWhenTheValueMatchedNoEntry()
    {
        FeatureRow row(m_cases, QStringLiteral("OrphanMode"));
        EnumEditor editor;
        row.attach(editor);
        QVERIFY(showWithOpenPopup(editor));
        arrowTo(editor.view(), 0, editor.findText(QStringLiteral("High Gain")));
        QTest::keyClick(editor.view(), Qt::Key_Return);

        QCOMPARE(row.commitResults(), QList<bool>{true});
        m_cases->waitForDevice();
        QCOMPARE(value(row.parameter()), QStringLiteral("High"));
        QCOMPARE(
            row.parameter()->getParameterData().staticCast<const EnumParameterData>()->intValue, 2);
    }

    void shouldWriteTheNextEntryWhenTheFocusedBoxGetsArrowKeys()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        row.attach(editor);

        arrowTo(&editor, editor.currentIndex(), editor.findText(QStringLiteral("Switched Off")));

        QCOMPARE(editor.currentText(), QStringLiteral("Switched Off"));
        QCOMPARE(row.commitResults(), QList<bool>{true});
        m_tree->waitForDevice();
        QCOMPARE(value(row.parameter()), QStringLiteral("Off"));
    }

    void shouldNotReportLoadedDataAsAnEdit()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        QSignalSpy edited(&editor, &EnumEditor::valueEdited);

        editor.setEditorData(row.editorData());
        row.parameter()->setValue(QStringLiteral("Off"));
        m_tree->waitForDevice();
        editor.setEditorData(row.editorData());

        QCOMPARE(editor.currentText(), QStringLiteral("Switched Off"));
        QCOMPARE(edited.count(), 0);
    }

    void shouldNotWriteWhenThePopupIsClosedWithEscape()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        row.attach(editor);
        QVERIFY(showWithOpenPopup(editor));
        arrowTo(editor.view(), editor.currentIndex(),
                editor.findText(QStringLiteral("Switched Off")));
        QTest::keyClick(editor.view(), Qt::Key_Escape);

        QTRY_VERIFY(!editor.view()->isVisible());
        QCOMPARE(row.commitResults(), QList<bool>());
        QCOMPARE(editor.currentText(), QStringLiteral("Switched On"));
        m_tree->waitForDevice();
        QCOMPARE(value(row.parameter()), QStringLiteral("On"));
    }

    void shouldWatchThePopupOnlyWhileItIsOpen()
    {
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        editor.setEditorData(row.editorData());
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));

        editor.showPopup();
        QVERIFY(editor.watchedPopup());
        QCOMPARE(editor.watchedPopup(), QApplication::activePopupWidget());
        QVERIFY(editor.watchedPopup()->isAncestorOf(editor.view()));

        editor.hidePopup();
        QVERIFY(!editor.watchedPopup());
    }

    void shouldWatchNoPopupWhenThereAreNoEntries()
    {
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        EnumEditor editor;
        MessageCapture log;
        editor.setEditorData(row.editorData());
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));

        editor.showPopup();

        QVERIFY(!editor.watchedPopup());
    }

    void shouldKeepTheOpenPopupsListUntilItCloses()
    {
        // Given an open popup
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        EnumEditor editor;
        editor.setEditorData(row.editorData());
        QVERIFY(showWithOpenPopup(editor));

        // When the device's value changes and the view reloads the editor
        row.parameter()->setValue(QStringLiteral("Off"));
        m_tree->waitForDevice();
        editor.setEditorData(row.editorData());

        // Then the list under the user's eyes stays as it is until the popup closes
        QCOMPARE(editor.currentText(), QStringLiteral("Switched On"));
        QCOMPARE(editor.view()->currentIndex().row(),
                 editor.findText(QStringLiteral("Switched On")));
        QCOMPARE(editor.count(), 2);
        editor.hidePopup();
        QTRY_COMPARE(editor.currentText(), QStringLiteral("Switched Off"));
    }

    void shouldLogAndStayEmptyForANonEnumerationParameter()
    {
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        EnumEditor editor;
        MessageCapture log;

        editor.setEditorData(row.editorData());

        QCOMPARE(editor.count(), 0);
        QVERIFY(!editor.editorData().isValid());
        QCOMPARE(log.lines(),
                 QStringList{QStringLiteral(
                     "@CameraDevice/BoolFeat is called with non-enumeration node????")});
    }

    void shouldShowAReadOnlyEnumerationDisabled()
    {
        FeatureRow row(m_cases, QStringLiteral("FixedMode"));
        EnumEditor editor;
        QSignalSpy edited(&editor, &EnumEditor::valueEdited);

        editor.setEditorData(row.editorData());
        QTest::mouseClick(&editor, Qt::LeftButton);
        QTest::keyClick(&editor, Qt::Key_Up);

        QVERIFY(!editor.isEnabled());
        QCOMPARE(editor.currentText(), QStringLiteral("Far Field"));
        QVERIFY(!editor.watchedPopup());
        QCOMPARE(edited.count(), 0);
    }

    void shouldOfferAnEntryOnceItBecomesAvailable()
    {
        FeatureRow row(m_cases, QStringLiteral("TriggerMode"));
        EnumEditor editor;
        editor.setEditorData(row.editorData());
        QCOMPARE(editor.currentIndex(), -1);

        setAndRefresh(QStringLiteral("TriggerAvailable"), QVariant(1), row.parameter());
        editor.setEditorData(row.editorData());

        QCOMPARE(itemTexts(editor), dataTexts(row.parameter()));
        QCOMPARE(editor.count(), 2);
        QCOMPARE(editor.currentText(), QStringLiteral("Triggered"));
    }

    void shouldIgnoreTheWheelOverAnUnfocusedBox()
    {
        // Given a box in a window whose focus is elsewhere
        FocusElsewhere<EnumEditor> window;
        EnumEditor* editor = window.editor;
        QLineEdit* other = window.other;
        FeatureRow row(m_tree, QStringLiteral("EnumFeat"));
        row.attach(*editor);
        QVERIFY(window.show());

        // When the wheel turns over it, the entry stays and nothing is written
        turnWheel(editor, 120);
        turnWheel(editor, -120);
        QCOMPARE(editor->currentText(), QStringLiteral("Switched On"));
        QCOMPARE(row.commitResults(), QList<bool>());
        QVERIFY(other->hasFocus());

        // Once the user has clicked into the box, the wheel picks entries (up is the previous one)
        editor->setFocus();
        QTRY_VERIFY(editor->hasFocus());
        turnWheel(editor, editor->findText(QStringLiteral("Switched Off")) < editor->currentIndex()
                              ? 120
                              : -120);
        QCOMPARE(editor->currentText(), QStringLiteral("Switched Off"));
        QCOMPARE(row.commitResults(), QList<bool>{true});
    }

    void shouldStayEmptyWithoutThrowingWhenTheDeviceIsGone()
    {
        const AbstractItemEditor::EditorData data{tree(QStringLiteral("EnumFeat")), {}};
        EnumEditor editor;
        editor.setEditorData(data);
        QCOMPARE(editor.count(), 2);
        MessageCapture log;

        m_tree.reset(); // the device closes; its parameters now throw
        editor.setEditorData(data);

        QCOMPARE(editor.count(), 0);
        QVERIFY(!editor.editorData().isValid());
        editor.setEditorData(AbstractItemEditor::EditorData{});
        QCOMPARE(editor.count(), 0);
        QCOMPARE(log.lines(), QStringList());
    }
};

QTEST_MAIN(tst_EnumEditor)
#include "tst_enumeditor.moc"
