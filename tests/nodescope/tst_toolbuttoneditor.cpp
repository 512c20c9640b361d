#include "editortestsupport.h"

#include "internal/legacy/toolbuttoneditor.h"

#include <simulateddevice.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <memory>

using namespace ParameterCollection;

namespace {

// Counts the writes that reach one register of the device's first node map; null when there
// is no such register.
std::shared_ptr<std::atomic<int>> countWrites(Backend::DeviceParameterCollection* collection,
                                              const char* registerName)
{
    auto count = std::make_shared<std::atomic<int>>(0);
    bool found = false;
    collection->runOnDeviceThread([&found, count, registerName](Backend::DeviceWorker& worker) {
        Backend::SimulatedDevice* device = worker.simulatedDevice(0);
        quint64 address = 0;
        quint32 length = 0;
        found = device->registerOf(registerName, &address, &length);
        device->addWriteHook([count, address](Backend::SimulatedDevice&, quint64 at, quint32) {
            if (at == address) {
                ++*count;
            }
        });
    });
    return found ? count : nullptr;
}

bool isDone(const ParameterDataPtr& data)
{
    return data.staticCast<const CommandParameterData>()->done;
}

void clickButton(QWidget* button)
{
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, button->rect().center());
}

} // namespace

class tst_ToolButtonEditor : public QObject, private EditorFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openDescriptions(QStringLiteral("editorstates")); }
    void cleanup() { closeDescriptions(); }

    void shouldBeACheckableExecuteButton()
    {
        ToolButtonEditor editor;
        QCOMPARE(editor.text(), QStringLiteral("Execute"));
        QVERIFY(!editor.autoRaise());
        QVERIFY(editor.isCheckable());
        QVERIFY(!editor.isChecked());
        QCOMPARE(editor.focusPolicy(), Qt::StrongFocus);
        QCOMPARE(editor.contentsMargins(), QMargins(0, 0, 0, 0));
    }

    void shouldTakeTheFocusWhenClickedOrTabbedTo()
    {
        FocusElsewhere<ToolButtonEditor> window;
        ToolButtonEditor* editor = window.editor;
        QLineEdit* other = window.other;
        QVERIFY(window.show());

        clickButton(editor);
        QVERIFY(editor->hasFocus());

        other->setFocus();
        QTRY_VERIFY(other->hasFocus());
        QTest::keyClick(other, Qt::Key_Tab);
        QVERIFY(editor->hasFocus());
    }

    void shouldExecuteTheCommandOnTheDeviceWhenClicked()
    {
        // Given the button of CmdFeat, with no view behind it
        const auto parameter = tree(QStringLiteral("CmdFeat"));
        const auto writes = countWrites(m_tree.data(), "CmdFeatReg");
        QVERIFY(writes);
        ToolButtonEditor editor;
        editor.setEditorData({parameter, m_tree});
        QVERIFY(isDone(parameter->getParameterData()));

        // When the user clicks it
        clickButton(&editor);
        m_tree->waitForDevice();

        // Then the command's value was written once and the device has not reported it done
        QCOMPARE(writes->load(), 1);
        QVERIFY(!isDone(parameter->getParameterData()));
        QCOMPARE(parameter->getParameterData()->value, QVariant(true));
        QVERIFY(!editor.isChecked());
    }

    void shouldShowTheCommandRunningUntilTheDeviceReportsItDone_data()
    {
        QTest::addColumn<bool>("throughModel");
        QTest::newRow("executed by the editor") << false;
        QTest::newRow("written through the model by the delegate") << true;
    }

    void shouldShowTheCommandRunningUntilTheDeviceReportsItDone()
    {
        // Given the built-in camera's AcquisitionStart, which takes a few reads to complete
        QFETCH(bool, throughModel);
        const auto camera = openSimulatedCamera();
        FeatureRow row(camera->collection, QStringLiteral("AcquisitionStart"));
        const auto parameter = row.parameter();
        auto* command = qobject_cast<ICommandParameter*>(parameter.data());
        QVERIFY(command);
        QVERIFY(command->isDone());
        ToolButtonEditor editor;
        editor.setEditorData(row.editorData());
        QVERIFY(editor.isEnabled());
        if (throughModel) {
            row.commitOnEdit(editor);
        }
        QSignalSpy changed(parameter.data(), &IParameter::parameterDataChanged);

        // When the user clicks it
        clickButton(&editor);

        // Then the button is down and disabled while the command runs
        QVERIFY(!command->isDone());
        QVERIFY(editor.isDown());
        QVERIFY(!editor.isEnabled());

        // And once the device reports IsDone, it is ready for the next press
        while (changed.isEmpty() || !isDone(changed.last().at(0).value<ParameterDataPtr>())) {
            QVERIFY(changed.wait());
        }
        QVERIFY(command->isDone());
        QVERIFY(isDone(parameter->getParameterData()));
        QVERIFY(editor.isEnabled());
        QVERIFY(!editor.isDown());
        QVERIFY(!editor.isChecked());
        QCOMPARE(parameter->getParameterData()->value, QVariant(false));
        QCOMPARE(row.commitResults(), throughModel ? QList<bool>{true} : QList<bool>());
    }

    void shouldExecuteOncePerPressWhoeverCommits_data()
    {
        QTest::addColumn<QString>("commit");
        QTest::newRow("no view behind the editor") << "none";
        QTest::newRow("delegate commits on valueEdited") << "valueEdited";
        QTest::newRow("delegate commits on clicked") << "clicked";
        QTest::newRow("view commits when the focus leaves") << "later";
    }

    void shouldExecuteOncePerPressWhoeverCommits()
    {
        QFETCH(QString, commit);
        FeatureRow row(m_tree, QStringLiteral("CmdFeat"));
        const auto writes = countWrites(m_tree.data(), "CmdFeatReg");
        QVERIFY(writes);
        ToolButtonEditor editor;
        editor.setEditorData(row.editorData());
        if (commit == QLatin1String("valueEdited")) {
            row.commitOnEdit(editor);
        } else if (commit == QLatin1String("clicked")) {
            row.commitOn(editor, &QAbstractButton::clicked);
        }

        // Every write shows at once as a running snapshot, before the device has seen it; so
        // writes that the device queue would merge are still counted here.
        QSignalSpy written(row.parameter().data(), &IParameter::parameterDataChanged);

        clickButton(&editor);
        QCOMPARE(written.count(), 1);
        if (commit == QLatin1String("later")) {
            m_tree->waitForDevice();
            written.clear();
            row.commit(editor);
            QCOMPARE(written.count(), 0);
        }
        m_tree->waitForDevice();

        QCOMPARE(writes->load(), 1);
        QVERIFY(!isDone(row.parameter()->getParameterData()));
        QVERIFY(!editor.isChecked());
        QVERIFY(!editor.editorData().toBool());
    }

    void shouldHandThePressToTheDelegateAsTrue()
    {
        FeatureRow row(m_tree, QStringLiteral("CmdFeat"));
        ToolButtonEditor editor;
        editor.setEditorData(row.editorData());
        QVariant handed;
        connect(&editor, &ToolButtonEditor::valueEdited, &editor,
                [&] { handed = editor.editorData(); });

        clickButton(&editor);

        QCOMPARE(handed, QVariant(true));
        QVERIFY(!editor.isChecked());
    }

    void shouldHandBackTheCheckedStateAndResetIt()
    {
        ToolButtonEditor editor;
        editor.setChecked(true);

        QCOMPARE(editor.editorData(), QVariant(true));
        QVERIFY(!editor.isChecked());
        QCOMPARE(editor.editorData(), QVariant(false));
    }

    void shouldLogAndDropTheParameterForANonCommandParameter()
    {
        FeatureRow row(m_tree, QStringLiteral("BoolFeat"));
        const auto writes = countWrites(m_tree.data(), "CmdFeatReg");
        QVERIFY(writes);
        ToolButtonEditor editor;
        editor.setEditorData({tree(QStringLiteral("CmdFeat")), m_tree});
        QVERIFY(editor.command());
        MessageCapture log;

        editor.setEditorData(row.editorData());
        clickButton(&editor);
        m_tree->waitForDevice();

        QCOMPARE(log.lines(), QStringList{QStringLiteral(
                                  "@CameraDevice/BoolFeat is called with non-command node????")});
        QVERIFY(!editor.command());
        QCOMPARE(writes->load(), 0);
        QVERIFY(isDone(tree(QStringLiteral("CmdFeat"))->getParameterData()));
    }

    void shouldFollowTheLockOfTheCommandWithoutBeingReloaded()
    {
        // Given an unlocked command's button
        const auto command = parameter(QStringLiteral("LockableCmd"));
        ToolButtonEditor editor;
        editor.setEditorData({command, m_cases});
        QVERIFY(editor.isEnabled());

        // When the command becomes locked and the device says so
        setAndRefresh(QStringLiteral("Lock"), QVariant(1), command);

        // Then the button is disabled, and enabled again once unlocked
        QVERIFY(command->getParameterData()->locked);
        QVERIFY(!editor.isEnabled());
        setAndRefresh(QStringLiteral("Lock"), QVariant(0), command);
        QVERIFY(editor.isEnabled());
    }

    void shouldStayReadyWithoutThrowingWhenTheDeviceIsGone()
    {
        const AbstractItemEditor::EditorData data{tree(QStringLiteral("CmdFeat")), {}};
        ToolButtonEditor editor;
        editor.setEditorData(data);
        QVERIFY(editor.isEnabled());

        m_tree.reset(); // the device closes; its parameters now throw
        editor.setEditorData(data);
        clickButton(&editor);

        QVERIFY(!editor.isChecked());
        QVERIFY(!editor.isDown());
        QVERIFY(editor.isEnabled());
    }
};

QTEST_MAIN(tst_ToolButtonEditor)
#include "tst_toolbuttoneditor.moc"
