#include "editortestsupport.h"

#include "internal/legacy/checkboxeditor.h"
#include "internal/legacy/enumeditor.h"
#include "internal/legacy/featuretreedelegate.h"
#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/floateditor.h"
#include "internal/legacy/floatslidereditor.h"
#include "internal/legacy/inteditor.h"
#include "internal/legacy/intslidereditor.h"
#include "internal/legacy/toolbuttoneditor.h"

#include <simulateddevice.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTreeView>
#include <QtTest>

using namespace ParameterCollection;

// The built-in simulated camera's whole tree in a view with the delegate, at Guru level.
struct BuiltinTree {
    std::unique_ptr<SimulatedCamera> camera = openSimulatedCamera();
    FeatureTreeModel model;
    FeatureTreeProxyModel proxy;
    FeatureTreeHighlighter highlighter;
    QTreeView view;
    FeatureTreeDelegate* delegate = new FeatureTreeDelegate(&view, &proxy, &highlighter);
    bool exposed = false;

    BuiltinTree()
    {
        proxy.setSourceModel(&model);
        proxy.addParameterCollection(camera->collection, QStringLiteral("Camera"),
                                     QStringLiteral("@CameraDevice"), false);
        view.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
        view.setItemDelegate(delegate);
        view.setModel(&proxy);
        view.expandAll();
        view.resize(600, 900);
        view.show();
        exposed = QTest::qWaitForWindowExposed(&view);
    }
    QSharedPointer<IParameter> parameter(const QString& feature) const
    {
        return camera->collection->getParameter(QStringLiteral("@CameraDevice/") + feature);
    }
    QModelIndex index(const QString& feature) const
    {
        return proxy.findItemByFullName(QStringLiteral("@CameraDevice/") + feature, nullptr, 1);
    }
    QVariant value(const QString& feature) const
    {
        QCoreApplication::processEvents();
        static_cast<Backend::DeviceParameterCollection*>(camera->collection.data())
            ->waitForDevice();
        return parameter(feature)->getParameterData()->value;
    }
    template <class Editor> Editor* openPersistent(const QString& feature)
    {
        const QModelIndex i = index(feature);
        view.scrollTo(i);
        view.openPersistentEditor(i);
        return qobject_cast<Editor*>(view.indexWidget(i));
    }
    QWidget* startEditing(const QString& feature)
    {
        const QModelIndex i = index(feature);
        view.scrollTo(i);
        view.setCurrentIndex(i);
        view.edit(i);
        return view.indexWidget(i);
    }
    int writes() const
    {
        int count = 0;
        static_cast<Backend::DeviceParameterCollection*>(camera->collection.data())
            ->runOnDeviceThread([&count](Backend::DeviceWorker& worker) {
                count = worker.simulatedDevice(0)->writeCount();
            });
        return count;
    }
    // The value cells of every feature row, in tree order.
    QModelIndexList featureValues(const QModelIndex& parent = QModelIndex()) const
    {
        QModelIndexList values;
        for (int row = 0; row < proxy.rowCount(parent); ++row) {
            const QModelIndex name = proxy.index(row, 0, parent);
            if (!name.data(FeatureTreeItem::IsCategoryRole).toBool()) {
                values << proxy.index(row, 1, parent);
            }
            values << featureValues(name);
        }
        return values;
    }
};

// Any collection's tree in a view with the delegate, at Guru level.
struct CollectionTree {
    FeatureTreeModel model;
    FeatureTreeProxyModel proxy;
    FeatureTreeHighlighter highlighter;
    QTreeView view;
    FeatureTreeDelegate* delegate = new FeatureTreeDelegate(&view, &proxy, &highlighter);
    bool exposed = false;

    explicit CollectionTree(const QSharedPointer<IParameterCollection>& collection)
    {
        proxy.setSourceModel(&model);
        proxy.addParameterCollection(collection, QStringLiteral("Camera"),
                                     QStringLiteral("@CameraDevice"), false);
        view.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
        view.setItemDelegate(delegate);
        view.setModel(&proxy);
        view.expandAll();
        view.resize(600, 900);
        view.show();
        exposed = QTest::qWaitForWindowExposed(&view);
    }
    QWidget* startEditing(const QString& feature)
    {
        const QModelIndex i =
            proxy.findItemByFullName(QStringLiteral("@CameraDevice/") + feature, nullptr, 1);
        view.scrollTo(i);
        view.setCurrentIndex(i);
        view.edit(i);
        return view.indexWidget(i);
    }
};

// Types `text` over the editor's whole content and presses Enter, as a user retypes a value.
template <class Editor> void replaceAndEnter(Editor* editor, const QString& text)
{
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

// The same into an editor that first takes the keyboard focus, as a click into it gives it.
template <class Editor> void focusAndEnter(Editor* editor, const QString& text)
{
    editor->setFocus();
    replaceAndEnter(editor, text);
}

// The delegate on a real tree: a view over the proxy over the model of a simulated camera.
class tst_FeatureTreeDelegate : public QObject, private EditorFixture {
    Q_OBJECT

private:
    std::unique_ptr<FeatureTreeModel> m_model;
    std::unique_ptr<FeatureTreeProxyModel> m_proxy;
    std::unique_ptr<FeatureTreeHighlighter> m_highlighter;
    std::unique_ptr<QTreeView> m_view;
    FeatureTreeDelegate* m_delegate = nullptr; // owned by the view

    QModelIndex index(const QString& feature, int column = 1) const
    {
        return m_proxy->findItemByFullName(fullFeatureName(feature), nullptr, column);
    }
    // The feature's value once the view has done what is queued and the device has answered.
    QVariant value(const QString& feature) const
    {
        QCoreApplication::processEvents();
        m_tree->waitForDevice();
        return tree(feature)->getParameterData()->value;
    }
    template <class Editor> Editor* openPersistent(const QString& feature)
    {
        const QModelIndex i = index(feature);
        m_view->openPersistentEditor(i);
        return qobject_cast<Editor*>(m_view->indexWidget(i));
    }
    // Starts editing the way a user does, and returns the editor that took the focus.
    QWidget* startEditing(const QString& feature)
    {
        const QModelIndex i = index(feature);
        m_view->setCurrentIndex(i);
        m_view->edit(i);
        return m_view->indexWidget(i);
    }
    int writeCount()
    {
        int count = 0;
        m_tree->runOnDeviceThread([&count](Backend::DeviceWorker& worker) {
            count = worker.simulatedDevice(0)->writeCount();
        });
        return count;
    }

private Q_SLOTS:
    void init()
    {
        openTree();
        m_model = std::make_unique<FeatureTreeModel>();
        m_proxy = std::make_unique<FeatureTreeProxyModel>();
        m_highlighter = std::make_unique<FeatureTreeHighlighter>();
        m_proxy->setSourceModel(m_model.get());
        m_proxy->addParameterCollection(m_tree, QStringLiteral("Camera"),
                                        QStringLiteral("@CameraDevice"), false);
        m_proxy->setShowUnavailableParameters(true);
        m_view = std::make_unique<QTreeView>();
        m_view->setEditTriggers(QAbstractItemView::DoubleClicked |
                                QAbstractItemView::EditKeyPressed);
        m_delegate = new FeatureTreeDelegate(m_view.get(), m_proxy.get(), m_highlighter.get());
        m_view->setItemDelegate(m_delegate);
        m_view->setModel(m_proxy.get());
        m_view->expandAll();
        m_view->resize(600, 900);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    }

    void cleanup()
    {
        m_view.reset();
        m_proxy.reset();
        m_model.reset();
        closeDescriptions();
    }

    void shouldChooseTheEditorForEachKindOfFeature_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("editorClass");
        QTest::newRow("integer") << "IntPlain"
                                 << "IntEditor";
        QTest::newRow("hex integer") << "IntHex"
                                     << "IntEditor";
        QTest::newRow("linear integer") << "IntLinear"
                                        << "IntSliderEditor";
        QTest::newRow("logarithmic integer") << "IntLog"
                                             << "IntSliderEditor";
        QTest::newRow("float") << "FloatPlain"
                               << "FloatEditor";
        QTest::newRow("linear float") << "FloatLinear"
                                      << "FloatSliderEditor";
        QTest::newRow("logarithmic float") << "FloatLog"
                                           << "FloatSliderEditor";
        QTest::newRow("enumeration") << "EnumFeat"
                                     << "EnumEditor";
        QTest::newRow("boolean") << "BoolFeat"
                                 << "CheckBoxEditor";
        QTest::newRow("command") << "CmdFeat"
                                 << "ToolButtonEditor";
        QTest::newRow("string") << "StrFeat"
                                << "QExpandingLineEdit";
        QTest::newRow("read-only integer") << "ReadOnlyInt"
                                           << "IntEditor";
        QTest::newRow("write-only integer") << "WriteOnly"
                                            << "IntEditor";
    }
    void shouldChooseTheEditorForEachKindOfFeature()
    {
        QFETCH(QString, feature);
        QFETCH(QString, editorClass);
        QStyleOptionViewItem option;
        std::unique_ptr<QWidget> editor(
            m_delegate->createEditor(m_view->viewport(), option, index(feature)));
        QVERIFY(editor);
        QCOMPARE(QString::fromLatin1(editor->metaObject()->className()), editorClass);
    }

    void shouldOpenNoEditorForAnAbsentFeature()
    {
        // Given a feature that is not available now
        const QModelIndex notAvailable = index(QStringLiteral("NotAvail"));
        QVERIFY(notAvailable.isValid());
        auto* item = dynamic_cast<FeatureTreeINodeItem*>(m_proxy->getFeatureTreeItem(notAvailable));
        QCOMPARE(item->getAccessMode(), GenApi::NA);
        // When the user double-clicks its value
        const QRect cell = m_view->visualRect(notAvailable);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, cell.center());
        // Then no editor opens
        QVERIFY(!m_view->indexWidget(notAvailable));
        QCOMPARE(m_view->findChildren<QLineEdit*>().size(), 0);
        QStyleOptionViewItem option;
        QVERIFY(!m_delegate->createEditor(m_view->viewport(), option, notAvailable));
    }

    void shouldOpenNoEditorForCategoriesOrInvalidIndexes()
    {
        QStyleOptionViewItem option;
        QVERIFY(!m_delegate->createEditor(m_view->viewport(), option, QModelIndex()));
        // A category is no feature: Qt's default editor for its empty edit value, if any, but
        // never one of ours.
        QWidget* editor =
            m_delegate->createEditor(m_view->viewport(), option, index(QStringLiteral("Controls")));
        QVERIFY(!dynamic_cast<AbstractItemEditor*>(editor));
        delete editor;
    }

    void shouldWriteAPlainIntegerOnlyWhenEditingEnds()
    {
        // Given the line editor of a plain integer
        auto* editor = qobject_cast<IntEditor*>(startEditing(QStringLiteral("IntPlain")));
        QVERIFY(editor);
        QCOMPARE(editor->text(), QStringLiteral("42"));
        const int writes = writeCount();
        // When the user types a number, nothing is written yet
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("77"));
        QCOMPARE(writeCount(), writes);
        QCOMPARE(value(QStringLiteral("IntPlain")).toLongLong(), 42);
        // Then Enter writes it
        QTest::keyClick(editor, Qt::Key_Return);
        QCOMPARE(value(QStringLiteral("IntPlain")).toLongLong(), 77);
        QTRY_COMPARE(index(QStringLiteral("IntPlain")).data().toString(), QStringLiteral("77"));
    }

    void shouldWriteAHexIntegerTypedInHex()
    {
        auto* editor = qobject_cast<IntEditor*>(startEditing(QStringLiteral("IntHex")));
        QVERIFY(editor);
        replaceAndEnter(editor, QStringLiteral("0x1F"));
        QCOMPARE(value(QStringLiteral("IntHex")).toLongLong(), 0x1f);
    }

    void shouldWriteALinearIntegerWhileTheUserSteps()
    {
        // Given the slider editor of an integer with increment 10
        auto* editor = openPersistent<IntSliderEditor>(QStringLiteral("IntLinear"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QSpinBox*>();
        QVERIFY(spinBox);
        QCOMPARE(spinBox->value(), 500);
        // When the user steps once, the camera has it at once, without ending the edit
        spinBox->setFocus();
        QTest::keyClick(spinBox, Qt::Key_Up);
        QCOMPARE(value(QStringLiteral("IntLinear")).toLongLong(), 510);
        QTest::keyClick(spinBox, Qt::Key_Up);
        QCOMPARE(value(QStringLiteral("IntLinear")).toLongLong(), 520);
    }

    void shouldWriteALinearIntegerWhileTheUserDrags()
    {
        auto* editor = openPersistent<IntSliderEditor>(QStringLiteral("IntLinear"));
        QVERIFY(editor);
        auto* slider = editor->findChild<QSlider*>();
        QVERIFY(slider);
        // Keys on the slider move it as a drag would, one step at a time
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(value(QStringLiteral("IntLinear")).toLongLong(), 510);
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(value(QStringLiteral("IntLinear")).toLongLong(), 1000);
    }

    void shouldWriteAFloatTypedIntoItsSpinBox()
    {
        auto* editor = openPersistent<FloatEditor>(QStringLiteral("FloatPlain"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QDoubleSpinBox*>();
        QVERIFY(spinBox);
        focusAndEnter(spinBox, QStringLiteral("20"));
        QCOMPARE(value(QStringLiteral("FloatPlain")).toDouble(), 20.0);
    }

    void shouldWriteALinearFloatWhileTheUserSteps()
    {
        auto* editor = openPersistent<FloatSliderEditor>(QStringLiteral("FloatLinear"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QDoubleSpinBox*>();
        QVERIFY(spinBox);
        const double before = value(QStringLiteral("FloatLinear")).toDouble();
        spinBox->setFocus();
        QTest::keyClick(spinBox, Qt::Key_Up);
        const double after = value(QStringLiteral("FloatLinear")).toDouble();
        QVERIFY2(after > before, qPrintable(QStringLiteral("%1 -> %2").arg(before).arg(after)));
    }

    void shouldWriteTheEnumerationEntryTheUserPicks()
    {
        auto* editor = openPersistent<EnumEditor>(QStringLiteral("EnumFeat"));
        QVERIFY(editor);
        QCOMPARE(editor->currentText(), QStringLiteral("Switched On"));
        editor->setFocus();
        QTest::keyClick(editor, Qt::Key_Up);
        QCOMPARE(editor->currentText(), QStringLiteral("Switched Off"));
        QCOMPARE(value(QStringLiteral("EnumFeat")).toString(), QStringLiteral("Off"));
    }

    void shouldWriteABooleanWhenClicked()
    {
        auto* editor = openPersistent<CheckBoxEditor>(QStringLiteral("BoolFeat"));
        QVERIFY(editor);
        QVERIFY(editor->isChecked());
        // The box never takes the focus, but it answers the space bar like a click.
        QTest::keyClick(editor, Qt::Key_Space);
        QCOMPARE(value(QStringLiteral("BoolFeat")).toBool(), false);
        QVERIFY(!editor->isChecked());
    }

    void shouldExecuteACommandWhenPressed()
    {
        // Given the command's register, untouched
        quint64 address = 0;
        quint32 length = 0;
        qint64 written = -1;
        m_tree->runOnDeviceThread([&](Backend::DeviceWorker& worker) {
            worker.simulatedDevice(0)->registerOf("CmdFeatReg", &address, &length);
            written = worker.simulatedDevice(0)->peekInt(address, length);
        });
        QCOMPARE(written, 0);
        auto* editor = openPersistent<ToolButtonEditor>(QStringLiteral("CmdFeat"));
        QVERIFY(editor);
        // When the user presses the button
        QTest::mouseClick(editor, Qt::LeftButton, {}, editor->rect().center());
        m_tree->waitForDevice();
        // Then the command value reached the camera
        m_tree->runOnDeviceThread([&](Backend::DeviceWorker& worker) {
            written = worker.simulatedDevice(0)->peekInt(address, length);
        });
        QCOMPARE(written, 1);
    }

    void shouldEditAStringWithTheDefaultLineEdit()
    {
        auto* editor = qobject_cast<QLineEdit*>(startEditing(QStringLiteral("StrFeat")));
        QVERIFY(editor);
        QVERIFY(!dynamic_cast<AbstractItemEditor*>(editor));
        QCOMPARE(editor->text(), QStringLiteral("hello"));
        replaceAndEnter(editor, QStringLiteral("world"));
        QCOMPARE(value(QStringLiteral("StrFeat")).toString(), QStringLiteral("world"));
    }

    void shouldNotReplaceTextTheUserIsTyping()
    {
        // Given the user typing into a string's editor
        auto* editor = qobject_cast<QLineEdit*>(startEditing(QStringLiteral("StrFeat")));
        QVERIFY(editor);
        editor->setFocus();
        QTRY_VERIFY(editor->hasFocus());
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("typing"));
        // When the value changes in the camera and the tree refreshes
        QSignalSpy changed(m_proxy.get(), &QAbstractItemModel::dataChanged);
        tree(QStringLiteral("StrFeat"))->setValue(QStringLiteral("other"));
        QTRY_VERIFY(!changed.isEmpty());
        m_delegate->setEditorData(editor, index(QStringLiteral("StrFeat")));
        // Then the text being typed stays
        QCOMPARE(editor->text(), QStringLiteral("typing"));
        // while an editor without focus follows the model
        QStyleOptionViewItem option;
        std::unique_ptr<QWidget> idle(
            m_delegate->createEditor(m_view->viewport(), option, index(QStringLiteral("StrFeat"))));
        auto* idleEdit = qobject_cast<QLineEdit*>(idle.get());
        QVERIFY(idleEdit && !idleEdit->hasFocus());
        m_delegate->setEditorData(idleEdit, index(QStringLiteral("StrFeat")));
        QCOMPARE(idleEdit->text(), QStringLiteral("other"));
    }

    void shouldFollowValuesThatChangeInTheCamera()
    {
        auto* editor = openPersistent<IntSliderEditor>(QStringLiteral("IntLinear"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QSpinBox*>();
        const int writes = writeCount();
        tree(QStringLiteral("IntLinear"))->setValue(250);
        QTRY_COMPARE(spinBox->value(), 250);
        // Showing the camera's value is not an edit: nothing is written back
        m_tree->waitForDevice();
        QCOMPARE(writeCount(), writes + 1);
    }

    void shouldDestroyEditorsLater()
    {
        QStyleOptionViewItem option;
        QPointer<QWidget> editor =
            m_delegate->createEditor(m_view->viewport(), option, index(QStringLiteral("IntPlain")));
        QVERIFY(editor);
        m_delegate->destroyEditor(editor, index(QStringLiteral("IntPlain")));
        QVERIFY(editor);
        QTRY_VERIFY(editor.isNull());
    }

    void shouldKeepTheStyleRowHeightAt96Dpi()
    {
        const QSize base(120, 17);
        QFont font;
        font.setPointSize(12);
        QCOMPARE(FeatureTreeDelegate::scaledSizeHint(base, font, 96.0), base);
        QCOMPARE(FeatureTreeDelegate::scaledSizeHint(base, font, 72.0), base);
    }

    void shouldUseAnEightPointRowAboveDefaultDpi()
    {
        const QSize base(120, 40);
        QFont font;
        font.setPointSize(12);
        QFont eight(font);
        eight.setPointSize(8);
        const QSize scaled = FeatureTreeDelegate::scaledSizeHint(base, font, 144.0);
        QCOMPARE(scaled.width(), 120);
        QCOMPARE(scaled.height(), QFontMetrics(eight).height() + 4);
    }

    void shouldAnswerTheBaseSizeHintOnThisScreen()
    {
        const QModelIndex i = index(QStringLiteral("IntPlain"), 0);
        QStyleOptionViewItem option;
        option.font = m_view->font();
        QStyledItemDelegate base;
        const qreal dpi = QGuiApplication::primaryScreen()->logicalDotsPerInch();
        QCOMPARE(m_delegate->sizeHint(option, i),
                 FeatureTreeDelegate::scaledSizeHint(base.sizeHint(option, i), option.font, dpi));
    }

    void shouldPaintNamesLikeTheBaseWithoutSearchText()
    {
        const QModelIndex i = index(QStringLiteral("IntPlain"), 0);
        QStyleOptionViewItem option;
        option.initFrom(m_view->viewport());
        option.rect = QRect(0, 0, 200, 24);
        option.widget = m_view.get();
        QStyledItemDelegate base;
        QImage ours(200, 24, QImage::Format_ARGB32);
        QImage theirs(200, 24, QImage::Format_ARGB32);
        ours.fill(Qt::white);
        theirs.fill(Qt::white);
        {
            QPainter painter(&ours);
            m_delegate->paint(&painter, option, i);
        }
        {
            QPainter painter(&theirs);
            base.paint(&painter, option, i);
        }
        QCOMPARE(ours, theirs);
    }

    void shouldPaintTheSelectedNameBold_data()
    {
        QTest::addColumn<QString>("search");
        QTest::newRow("no search text") << QString();
        QTest::newRow("search text not in the name") << QStringLiteral("zzz");
    }

    void shouldPaintTheSelectedNameBold()
    {
        // Given a selected row whose name holds no match
        QFETCH(QString, search);
        m_highlighter->setTextToHighlight(search);
        const QModelIndex i = index(QStringLiteral("IntPlain"), 0);
        QStyleOptionViewItem option;
        option.initFrom(m_view->viewport());
        option.rect = QRect(0, 0, 200, 24);
        option.widget = m_view.get();
        option.state |= QStyle::State_Selected;
        QStyleOptionViewItem bold(option);
        bold.font.setWeight(75);
        const auto paint = [&i](const QAbstractItemDelegate& delegate,
                                const QStyleOptionViewItem& how) {
            QImage image(200, 24, QImage::Format_ARGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            delegate.paint(&painter, how, i);
            return image;
        };
        QStyledItemDelegate base;

        // When the delegate paints its name
        const QImage ours = paint(*m_delegate, option);

        // Then it is the base delegate's cell in a bold font, without marks
        QCOMPARE(ours, paint(base, bold));
        QVERIFY(ours != paint(base, option));
    }

    void shouldMarkSearchMatchesInTheName()
    {
        // Given the search text "Integer" and the row "Plain Integer"
        m_highlighter->setTextToHighlight(QStringLiteral("integer"));
        const QModelIndex i = index(QStringLiteral("IntPlain"), 0);
        QStyleOptionViewItem option;
        option.initFrom(m_view->viewport());
        option.rect = QRect(0, 0, 200, 24);
        option.widget = m_view.get();
        QImage image(200, 24, QImage::Format_ARGB32);
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            m_delegate->paint(&painter, option, i);
        }
        // Then the second word sits on the highlight colour, the first does not
        const QColor mark = m_highlighter->getHighlightColor();
        int markedLeft = 0;
        int markedRight = 0;
        for (int x = 0; x < 200; ++x) {
            if (image.pixelColor(x, 12) == mark) {
                (x < 40 ? markedLeft : markedRight)++;
            }
        }
        QCOMPARE(markedLeft, 0);
        QVERIFY(markedRight > 20);
    }

    // The whole built-in camera, as a user sees it: every writable feature gets the editor of
    // its kind, and each kind can be edited through the view.
    void shouldOfferTheEditorOfItsKindForEveryWritableFeatureOfTheBuiltinCamera()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        const QMap<int, QString> classes{
            {FeatureTreeItem::IntEditorType, QStringLiteral("IntEditor")},
            {FeatureTreeItem::IntSliderEditorType, QStringLiteral("IntSliderEditor")},
            {FeatureTreeItem::FloatEditorType, QStringLiteral("FloatEditor")},
            {FeatureTreeItem::FloatSliderEditorType, QStringLiteral("FloatSliderEditor")},
            {FeatureTreeItem::EnumEditorType, QStringLiteral("EnumEditor")},
            {FeatureTreeItem::BoolEditorType, QStringLiteral("CheckBoxEditor")},
            {FeatureTreeItem::StringEditorType, QStringLiteral("QExpandingLineEdit")},
            {FeatureTreeItem::CommandEditorType, QStringLiteral("ToolButtonEditor")}};
        QMap<int, int> editorsOfType;
        QStyleOptionViewItem option;
        for (const QModelIndex& value : camera.featureValues()) {
            auto* item =
                dynamic_cast<FeatureTreeINodeItem*>(camera.proxy.getFeatureTreeItem(value));
            QVERIFY(item);
            if (item->getAccessMode() < GenApi::WO) {
                continue;
            }
            std::unique_ptr<QWidget> editor(
                camera.delegate->createEditor(camera.view.viewport(), option, value));
            QVERIFY2(editor, qPrintable(item->getFullName()));
            QCOMPARE(QString::fromLatin1(editor->metaObject()->className()),
                     classes.value(item->editorType()));
            ++editorsOfType[item->editorType()];
        }
        for (auto it = classes.cbegin(); it != classes.cend(); ++it) {
            QVERIFY2(editorsOfType.value(it.key()) > 0, qPrintable(it.value()));
        }
    }

    void shouldStepALinearIntegerOfTheBuiltinCamera()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<IntSliderEditor>(QStringLiteral("Width"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QSpinBox*>();
        const qint64 before = camera.value(QStringLiteral("Width")).toLongLong();
        const auto data = camera.parameter(QStringLiteral("Width"))
                              ->getParameterData()
                              .dynamicCast<const IntegerParameterData>();
        spinBox->setFocus();
        QTest::keyClick(spinBox, Qt::Key_Down);
        QCOMPARE(camera.value(QStringLiteral("Width")).toLongLong(), before - data->increment);
    }

    void shouldTypeALogarithmicFloatOfTheBuiltinCamera()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<FloatSliderEditor>(QStringLiteral("ExposureTime"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QDoubleSpinBox*>();
        QVERIFY(spinBox->suffix().contains(QStringLiteral("µs")));
        spinBox->setFocus();
        spinBox->selectAll();
        QTest::keyClicks(spinBox, QStringLiteral("2500"));
        // Nothing reaches the camera while typing; Enter sends it
        QVERIFY(camera.value(QStringLiteral("ExposureTime")).toDouble() != 2500.0);
        QTest::keyClick(spinBox, Qt::Key_Return);
        QCOMPARE(camera.value(QStringLiteral("ExposureTime")).toDouble(), 2500.0);
    }

    void shouldPickAnEntryOfABuiltinEnumeration()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<EnumEditor>(QStringLiteral("PixelFormat"));
        QVERIFY(editor);
        const QString before = camera.value(QStringLiteral("PixelFormat")).toString();
        editor->setFocus();
        QTest::keyClick(editor, editor->currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down);
        const QString after = camera.value(QStringLiteral("PixelFormat")).toString();
        QVERIFY(after != before);
        QCOMPARE(editor->currentData(Qt::UserRole).toString(), after);
    }

    void shouldToggleABuiltinBoolean()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<CheckBoxEditor>(QStringLiteral("ReverseX"));
        QVERIFY(editor);
        const bool before = camera.value(QStringLiteral("ReverseX")).toBool();
        QTest::keyClick(editor, Qt::Key_Space);
        QCOMPARE(camera.value(QStringLiteral("ReverseX")).toBool(), !before);
    }

    void shouldTypeABuiltinString()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor =
            qobject_cast<QLineEdit*>(camera.startEditing(QStringLiteral("DeviceUserID")));
        QVERIFY(editor);
        replaceAndEnter(editor, QStringLiteral("Line 3 left"));
        QCOMPARE(camera.value(QStringLiteral("DeviceUserID")).toString(),
                 QStringLiteral("Line 3 left"));
    }

    void shouldExecuteABuiltinCommandAndSeeItDone()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<ToolButtonEditor>(QStringLiteral("AcquisitionStart"));
        QVERIFY(editor);
        QVERIFY(editor->isEnabled());
        const int writesBefore = camera.writes();
        QTest::mouseClick(editor, Qt::LeftButton, {}, editor->rect().center());
        const auto command = camera.parameter(QStringLiteral("AcquisitionStart"));
        // The device reports the command done after a few reads; the button comes back then
        QTRY_VERIFY(command->getParameterData().dynamicCast<const CommandParameterData>()->done);
        QTRY_VERIFY(editor->isEnabled());
        QTRY_VERIFY(!editor->isChecked());
        // and the command reached the camera once
        QCOMPARE(camera.writes() - writesBefore, 1);
    }

    void shouldWriteA64BitIntegerBeyondThe32BitRange()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor =
            qobject_cast<IntEditor*>(camera.startEditing(QStringLiteral("VntTestAddress40")));
        QVERIFY(editor);
        replaceAndEnter(editor, QStringLiteral("0xFF00000001"));
        QCOMPARE(camera.value(QStringLiteral("VntTestAddress40")).toLongLong(), 0xFF00000001LL);
    }
    void shouldSayWhatItWroteForAWidthTypedOffTheIncrement()
    {
        // Given the slider editor of the built-in camera's Width: 16 to 1920 by 16
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<IntSliderEditor>(QStringLiteral("Width"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QSpinBox*>();
        QSignalSpy notices(camera.delegate, &FeatureTreeDelegate::notice);
        // When the user types 1000 and presses Enter
        focusAndEnter(spinBox, QStringLiteral("1000"));
        // Then 992 is written, shown, and the status line says why
        QCOMPARE(camera.value(QStringLiteral("Width")).toLongLong(), 992);
        QCOMPARE(spinBox->value(), 992);
        QCOMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("Width: 1000 is not on the increment 16, wrote 992 px"));
        // And a value on the grid is written without a word
        replaceAndEnter(spinBox, QStringLiteral("640"));
        QCOMPARE(camera.value(QStringLiteral("Width")).toLongLong(), 640);
        QCOMPARE(notices.count(), 1);
    }

    void shouldSayWhatItWroteForAnIntegerTypedAboveTheMaximum()
    {
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<IntSliderEditor>(QStringLiteral("Width"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QSpinBox*>();
        QSignalSpy notices(camera.delegate, &FeatureTreeDelegate::notice);
        const qint64 maximum = camera.parameter(QStringLiteral("Width"))
                                   ->getParameterData()
                                   .dynamicCast<const IntegerParameterData>()
                                   ->max;
        focusAndEnter(spinBox, QStringLiteral("99999"));
        QCOMPARE(spinBox->value(), int(maximum));
        QCOMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("Width: 99999 is above the maximum %1, wrote %1 px").arg(maximum));
    }

    void shouldSayWhatItWroteForAnExposureTypedAboveTheMaximum()
    {
        // Given the exposure time editor, 20 to 10000000 µs
        BuiltinTree camera;
        QVERIFY(camera.exposed);
        auto* editor = camera.openPersistent<FloatSliderEditor>(QStringLiteral("ExposureTime"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QDoubleSpinBox*>();
        QSignalSpy notices(camera.delegate, &FeatureTreeDelegate::notice);
        // When the user types far more than the maximum
        focusAndEnter(spinBox, QStringLiteral("99999999"));
        // Then the maximum is written and shown, and the status line says so
        QCOMPARE(camera.value(QStringLiteral("ExposureTime")).toDouble(), 1e7);
        QCOMPARE(spinBox->value(), 1e7);
        QCOMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QString::fromUtf8("Exposure Time: 99999999 is above the maximum 10000000, "
                                   "wrote 10000000 µs"));
    }

    void shouldRefuseLettersInAnIntegerWithAMessage()
    {
        // Given the line editor of "Plain Integer", at 42
        auto* editor = qobject_cast<IntEditor*>(startEditing(QStringLiteral("IntPlain")));
        QVERIFY(editor);
        QSignalSpy notices(m_delegate, &FeatureTreeDelegate::notice);
        const int writes = writeCount();
        // When the user types a letter into a number
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("7x"));
        // Then the text is refused, said so, and the editor shows the value again
        QTRY_COMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("Plain Integer: \"7x\" is not a number, the value stays 42"));
        QCOMPARE(editor->text(), QStringLiteral("42"));
        QTest::keyClick(editor, Qt::Key_Return);
        QCOMPARE(writeCount(), writes);
        QCOMPARE(value(QStringLiteral("IntPlain")).toLongLong(), 42);
    }

    void shouldRefuseLettersInASpinBoxWithAMessage()
    {
        auto* editor = openPersistent<IntSliderEditor>(QStringLiteral("IntLinear"));
        QVERIFY(editor);
        auto* spinBox = editor->findChild<QSpinBox*>();
        QSignalSpy notices(m_delegate, &FeatureTreeDelegate::notice);
        spinBox->setFocus();
        spinBox->selectAll();
        QTest::keyClicks(spinBox, QStringLiteral("6q"));
        QTRY_COMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("Linear Integer: \"6q\" is not a number, the value stays 500"));
        QCOMPARE(spinBox->text(), QStringLiteral("500"));
        QCOMPARE(value(QStringLiteral("IntLinear")).toLongLong(), 500);
    }

    void shouldRefuseAnAddressThatIsNoneWithAMessage_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::newRow("IPv4") << "IpAddress"
                              << "192.168.10.300"
                              << "IpAddress: \"192.168.10.300\" is not an IPv4 address, the "
                                 "value stays 192.168.1.20";
        QTest::newRow("MAC") << "MacAddress"
                             << "00:1A:2B:3C:4D"
                             << "MacAddress: \"00:1A:2B:3C:4D\" is not a MAC address, the value "
                                "stays 00:1a:2b:3c:4d:5e";
    }
    void shouldRefuseAnAddressThatIsNoneWithAMessage()
    {
        QFETCH(QString, feature);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        // Given the editor of an address
        openCases(QStringLiteral("integereditors"));
        CollectionTree tree(m_cases);
        QVERIFY(tree.exposed);
        const QVariant before = parameter(feature)->getParameterData()->value;
        auto* editor = qobject_cast<IntEditor*>(tree.startEditing(feature));
        QVERIFY(editor);
        QSignalSpy notices(tree.delegate, &FeatureTreeDelegate::notice);
        // When the user types something that is no address and presses Enter
        replaceAndEnter(editor, typed);
        // Then nothing is written and the status line says why
        QTRY_COMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString().toLower(), message.toLower());
        m_cases->waitForDevice();
        QCOMPARE(parameter(feature)->getParameterData()->value, before);
    }
};

QTEST_MAIN(tst_FeatureTreeDelegate)
#include "tst_featuretreedelegate.moc"
