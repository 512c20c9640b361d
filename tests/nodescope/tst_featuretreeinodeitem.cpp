#include "faultycollection.h"
#include "testsupport.h"

#include "displaynamecache.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreemodel.h"

#include <QBrush>
#include <QPalette>
#include <QSet>
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>

using namespace ParameterCollection;

namespace {

// Gives every feature tool tip key a translation, as a translation file would.
class ToolTipTranslator : public QTranslator {
public:
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        const QString key = QString::fromUtf8(sourceText);
        if (qstrcmp(context, "FeatureTreeINodeItem") == 0 && key.endsWith("_Tooltip")) {
            return QStringLiteral("Translated tip of ") + key.chopped(8);
        }
        return QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class tst_FeatureTreeINodeItem : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_collection;
    FeatureTreeModel m_model; // the items' extension

    std::unique_ptr<FeatureTreeINodeItem>
    item(const QString& feature, const QSharedPointer<IParameterCollection>& from = {})
    {
        const QSharedPointer<IParameterCollection> collection = from ? from : m_collection;
        const QString fullName = QStringLiteral("@CameraDevice/") + feature;
        return std::make_unique<FeatureTreeINodeItem>(
            collection, collection->getParameter(fullName), &m_model, fullName, nullptr, false, 3);
    }

private Q_SLOTS:
    void initTestCase() { m_collection = openTestDescription(QStringLiteral("tree")); }
    void cleanupTestCase() { m_collection.reset(); }

    void shouldChooseTheEditorByTypeAndRepresentation_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<int>("editor");
        QTest::addColumn<bool>("persistent");
        QTest::newRow("integer") << "IntPlain" << int(FeatureTreeItem::IntEditorType) << false;
        QTest::newRow("linear integer")
            << "IntLinear" << int(FeatureTreeItem::IntSliderEditorType) << true;
        QTest::newRow("logarithmic integer")
            << "IntLog" << int(FeatureTreeItem::IntSliderEditorType) << true;
        QTest::newRow("hex integer") << "IntHex" << int(FeatureTreeItem::IntEditorType) << false;
        QTest::newRow("float") << "FloatPlain" << int(FeatureTreeItem::FloatEditorType) << true;
        QTest::newRow("linear float")
            << "FloatLinear" << int(FeatureTreeItem::FloatSliderEditorType) << true;
        QTest::newRow("logarithmic float")
            << "FloatLog" << int(FeatureTreeItem::FloatSliderEditorType) << true;
        QTest::newRow("enumeration") << "EnumFeat" << int(FeatureTreeItem::EnumEditorType) << true;
        QTest::newRow("boolean") << "BoolFeat" << int(FeatureTreeItem::BoolEditorType) << true;
        QTest::newRow("string") << "StrFeat" << int(FeatureTreeItem::StringEditorType) << false;
        QTest::newRow("command") << "CmdFeat" << int(FeatureTreeItem::CommandEditorType) << true;
        QTest::newRow("category") << "Controls" << int(FeatureTreeItem::NoEditorType) << false;
    }
    void shouldChooseTheEditorByTypeAndRepresentation()
    {
        QFETCH(QString, feature);
        QFETCH(int, editor);
        QFETCH(bool, persistent);
        const auto node = item(feature);
        QCOMPARE(node->editorType(), editor);
        QCOMPARE(FeatureTreeINodeItem::editorType(node.get()), editor);
        QCOMPARE(FeatureTreeINodeItem::editorType(node->node()), editor);
        QCOMPARE(node->usePersistentEditor(), persistent);
    }

    void shouldGiveNoParameterEditorWithoutAParameter()
    {
        FeatureTreeINodeItem node(m_collection, {}, &m_model, "@CameraDevice/Gone", nullptr, false,
                                  3);
        QCOMPARE(node.editorType(), int(FeatureTreeItem::NoParameterEditorType));
        QVERIFY(node.usePersistentEditor());
        QVERIFY(!node.data(1, Qt::DisplayRole).isValid());
        QCOMPARE(node.data(0, FeatureTreeItem::FullNameRole).toString(),
                 QStringLiteral("@CameraDevice/Gone"));
        QCOMPARE(FeatureTreeINodeItem::editorType(QSharedPointer<IParameter>()),
                 int(FeatureTreeItem::NoParameterEditorType));
        QCOMPARE(
            FeatureTreeINodeItem::editorType(static_cast<const FeatureTreeINodeItem*>(nullptr)),
            int(FeatureTreeItem::NoEditorType));
    }

    void shouldGiveNoParameterEditorForANullParameter()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        faulty->parameter("@CameraDevice/IntPlain")->reportNull = true;
        QCOMPARE(item("IntPlain", faulty)->editorType(),
                 int(FeatureTreeItem::NoParameterEditorType));
    }

    void shouldFallBackToNoEditorWhenTheParameterThrows()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        faulty->parameter("@CameraDevice/IntLinear")->throwOnProperty = true;
        faulty->parameter("@CameraDevice/EnumFeat")->throwOnType = true;
        QCOMPARE(item("IntLinear", faulty)->editorType(), int(FeatureTreeItem::NoEditorType));
        QCOMPARE(item("EnumFeat", faulty)->editorType(), int(FeatureTreeItem::NoEditorType));
    }

    void shouldShowValueTextsAndEditValues_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("edit");
        QTest::newRow("integer") << "IntPlain"
                                 << "42" << QVariant(qint64(42));
        QTest::newRow("hex") << "IntHex"
                             << "0xBEEF" << QVariant(qint64(0xbeef));
        QTest::newRow("float with unit") << "FloatPlain"
                                         << "12.5 dB" << QVariant(12.5);
        QTest::newRow("enumeration") << "EnumFeat"
                                     << "Switched On" << QVariant(QStringLiteral("On"));
        QTest::newRow("boolean has no edit value") << "BoolFeat"
                                                   << "True" << QVariant();
        QTest::newRow("string") << "StrFeat"
                                << "hello" << QVariant(QStringLiteral("hello"));
        QTest::newRow("category") << "Controls"
                                  << "" << QVariant();
        QTest::newRow("not implemented") << "NotImpl"
                                         << "<not implemented>" << QVariant();
        QTest::newRow("not readable") << "WriteOnly"
                                      << "<not readable>" << QVariant();
        QTest::newRow("not available") << "NotAvail"
                                       << "<not available>" << QVariant();
    }
    void shouldShowValueTextsAndEditValues()
    {
        QFETCH(QString, feature);
        QFETCH(QString, text);
        QFETCH(QVariant, edit);
        const auto node = item(feature);
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(), text);
        const QVariant value = node->data(1, Qt::EditRole);
        QCOMPARE(value.isValid(), edit.isValid());
        if (edit.isValid()) {
            QCOMPARE(value.toString(), edit.toString());
        }
        QVERIFY(!node->data(0, Qt::EditRole).isValid());
    }

    void shouldAnswerTheNodeRoles()
    {
        const auto node = item("IntPlain");
        QCOMPARE(node->data(0, Qt::DisplayRole).toString(), QStringLiteral("Plain Integer"));
        QCOMPARE(node->data(0, FeatureTreeItem::FullNameRole).toString(),
                 QStringLiteral("@CameraDevice/IntPlain"));
        QCOMPARE(node->data(0, FeatureTreeItem::TechnicalNameStringRole).toString(),
                 QStringLiteral("IntPlain"));
        QCOMPARE(node->data(0, FeatureTreeItem::NodemapNameRole).toString(),
                 QStringLiteral("CameraDevice"));
        QCOMPARE(node->data(0, FeatureTreeItem::DisplayNameStringRole).toString(),
                 QStringLiteral("Plain Integer"));
        QCOMPARE(node->data(0, FeatureTreeItem::IsCategoryRole).toBool(), false);
        QCOMPARE(node->data(0, FeatureTreeItem::VisibilityRole).toInt(), int(GenApi::Beginner));
        QCOMPARE(node->data(0, FeatureTreeItem::FullRowItemRole).toBool(), false);
        QCOMPARE(node->data(0, FeatureTreeItem::VisibleRole).toBool(), true);
        QCOMPARE(node->data(0, FeatureTreeItem::LevelRole).toInt(), 3);
        QCOMPARE(node->data(0, FeatureTreeItem::TechnicalNameRole).toString(),
                 QStringLiteral("IntPlain"));
        QCOMPARE(node->data(0, FeatureTreeItem::FullNamePathRole).toString(),
                 QStringLiteral("@CameraDevice/IntPlain"));
        QVERIFY(!node->data(0, 263).isValid());
        QVERIFY(!node->data(0, 267).isValid());

        const auto category = item("Kinds");
        QVERIFY(category->data(0, FeatureTreeItem::IsCategoryRole).toBool());
        QVERIFY(category->data(0, FeatureTreeItem::FullRowItemRole).toBool());
        QCOMPARE(item("FloatLog")->data(0, FeatureTreeItem::VisibilityRole).toInt(),
                 int(GenApi::Guru));
        // Without a display name, the technical name is shown
        QCOMPARE(item("IntLog")->data(0, Qt::DisplayRole).toString(), QStringLiteral("IntLog"));
    }

    void shouldShowASecondNameInBrackets()
    {
        const auto node = item("IntPlain");
        node->setSecondName("Sensor 2");
        QCOMPARE(node->data(0, Qt::DisplayRole).toString(),
                 QStringLiteral("Plain Integer [Sensor 2]"));
        QCOMPARE(node->getDisplayedName(), QStringLiteral("Plain Integer"));
    }

    void shouldNeverRepeatAUniqueId()
    {
        const auto a = item("IntPlain");
        const auto b = item("IntLinear");
        QSet<QString> ids;
        for (int i = 0; i < 200; ++i) {
            ids.insert(a->data(0, FeatureTreeItem::UniqueIdRole).toString());
            ids.insert(b->data(1, FeatureTreeItem::UniqueIdRole).toString());
        }
        QCOMPARE(ids.size(), 400);
    }

    void shouldBuildARichToolTip()
    {
        QCOMPARE(item("IntPlain")->data(0, Qt::ToolTipRole).toString(),
                 QStringLiteral("<nobr><b>Plain Integer (IntPlain)</b></nobr>"
                                "<br><nobr>An integer without representation.</nobr>"
                                "<br><nobr>Integer, access RW, visibility Beginner</nobr>"
                                "<br><nobr>Minimum 0, maximum 1000, increment 1</nobr>"));
        // Display name and technical name alike: the name once
        QVERIFY(item("IntLog")
                    ->data(1, Qt::ToolTipRole)
                    .toString()
                    .startsWith(QStringLiteral(
                        "<nobr><b>IntLog</b></nobr>"
                        "<br><nobr>Integer, access RW, visibility Beginner</nobr>")));
        QCOMPARE(item("Controls")->data(0, Qt::ToolTipRole).toString(),
                 QStringLiteral("<nobr><b>Controls</b></nobr>"));
    }

    void shouldPreferATranslatedToolTip()
    {
        ToolTipTranslator translator;
        QCoreApplication::installTranslator(&translator);
        const QString tip = item("IntPlain")->data(0, Qt::ToolTipRole).toString();
        QCoreApplication::removeTranslator(&translator);
        QVERIFY2(tip.startsWith("<nobr><b>Plain Integer (IntPlain)</b></nobr>"
                                "<br><nobr>Translated tip of @CameraDevice/IntPlain</nobr>"),
                 qPrintable(tip));
    }

    void shouldCacheTheDisplayNamesItLearns()
    {
        item("FloatPlain");
        QCOMPARE(Plugin::Nodescope::Internal::CDisplayNameCache::getDisplayName("FloatPlain"),
                 QStringLiteral("Plain Float"));
    }

    void shouldBeEditableOnlyWhenWritable()
    {
        const auto writable = item("IntPlain");
        QVERIFY(writable->isEditable());
        QVERIFY(writable->flags(1) & Qt::ItemIsEditable);
        QVERIFY(!(writable->flags(0) & Qt::ItemIsEditable));
        QVERIFY(writable->flags(0) & Qt::ItemIsDragEnabled);
        QVERIFY(!writable->getForegroundRole().isValid());
        QCOMPARE(writable->getAccessMode(), GenApi::RW);

        const auto readOnly = item("ReadOnlyInt");
        QVERIFY(!readOnly->isEditable());
        QVERIFY(!(readOnly->flags(1) & Qt::ItemIsEditable));
        QCOMPARE(readOnly->getAccessMode(), GenApi::RO);
        QVERIFY(readOnly->data(0, Qt::ForegroundRole).canConvert<QBrush>());

        const auto category = item("Kinds");
        QVERIFY(!category->isEditable());
        QVERIFY(!(category->flags(0) & Qt::ItemIsDragEnabled));
    }

    void shouldBeShownOnlyWhenImplementedAvailableAndWithinTheLevel()
    {
        QVERIFY(item("IntPlain")->showMe(GenApi::Beginner));
        QVERIFY(!item("IntHex")->showMe(GenApi::Beginner));
        QVERIFY(item("IntHex")->showMe(GenApi::Expert));
        QVERIFY(!item("NotImpl")->showMe(GenApi::Guru));
        QVERIFY(!item("NotAvail")->showMe(GenApi::Guru));
        QVERIFY(item("WriteOnly")->showMe(GenApi::Guru));
        QVERIFY(item("States")->showMe(GenApi::Guru));
        QVERIFY(!item("States")->showMe(GenApi::Expert));
    }

    void shouldFollowParameterChangesAndAnnounceThem()
    {
        // Given an unavailable feature whose availability another feature switches
        const auto node = item("NotAvail");
        QSignalSpy updated(node.get(), &FeatureTreeINodeItem::nodeUpdated);
        // When the switch is turned on
        m_collection->getParameter("@CameraDevice/AvailSwitch")->setValue(1);
        // Then the item shows the feature, and both columns are announced
        QTRY_VERIFY(node->showMe(GenApi::Guru));
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(), QStringLiteral("0"));
        QList<int> columns;
        for (const auto& args : updated) {
            columns << args.at(0).toInt();
            QCOMPARE(args.at(1).value<FeatureTreeINodeItem*>(), node.get());
        }
        QVERIFY(columns.contains(0));
        QVERIFY(columns.contains(1));
        m_collection->getParameter("@CameraDevice/AvailSwitch")->setValue(0);
        QTRY_VERIFY(!node->showMe(GenApi::Guru));
    }

    void shouldDeliverAForcedCheckEvenWithoutAChange()
    {
        const auto node = item("IntLinear");
        QSignalSpy updated(node.get(), &FeatureTreeINodeItem::nodeUpdated);
        node->scheduleForcedParameterDataChangedCheck();
        QTRY_VERIFY(!updated.isEmpty());
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(), QStringLiteral("500"));
    }

    void shouldWriteThroughTheParameter()
    {
        const auto node = item("StrFeat");
        QSignalSpy updated(node.get(), &FeatureTreeINodeItem::nodeUpdated);
        QVERIFY(node->setData(1, QStringLiteral("world"), Qt::EditRole));
        QTRY_COMPARE(node->data(1, Qt::DisplayRole).toString(), QStringLiteral("world"));
        QVERIFY(!node->setData(0, QStringLiteral("x"), Qt::EditRole));
        QVERIFY(!node->setData(1, QStringLiteral("x"), Qt::DisplayRole));
        m_collection->getParameter("@CameraDevice/StrFeat")->setValue(QStringLiteral("hello"));
        m_collection->waitForDevice();
    }

    void shouldWriteFloatsAsDoubles()
    {
        const auto node = item("FloatLinear");
        QVERIFY(node->setData(1, 3.25, Qt::EditRole));
        QTRY_COMPARE(node->data(1, Qt::EditRole).toDouble(), 3.25);
        QVERIFY(node->setData(1, QStringLiteral("2.0"), Qt::EditRole));
        QTRY_COMPARE(node->data(1, Qt::EditRole).toDouble(), 2.0);
    }

    void shouldLogAFloatEditorValueThatIsNoNumber()
    {
        const auto node = item("FloatPlain");
        MessageCapture log;
        QVERIFY(!node->setData(1, QStringLiteral("loud"), Qt::EditRole));
        QCOMPARE(log.lines(), QStringList{"FeatureTreeItem::setData() float editor, but no double "
                                          "in variant() (node name = @CameraDevice/FloatPlain )"});
    }

    void shouldLogAFloatEditorOnANodeThatIsNoFloat()
    {
        // The wrapper answers "float" for its type but is no float parameter.
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto node = item("FloatPlain", faulty);
        QCOMPARE(node->editorType(), int(FeatureTreeItem::FloatEditorType));
        MessageCapture log;
        QVERIFY(!node->setData(1, 5.0, Qt::EditRole));
        QCOMPARE(log.lines(),
                 QStringList{
                     "Floateditor for node @CameraDevice/FloatPlain, but no GenApi float node??"});
    }

    void shouldLetParameterLayerRefusalsReachTheCaller()
    {
        const auto node = item("IntPlain");
        QVERIFY_EXCEPTION_THROWN(node->setData(1, 100000, Qt::EditRole), RangeException);
    }

    void shouldObserveItsParameterWhileItLives()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto parameter = faulty->parameter("@CameraDevice/IntPlain");
        {
            const auto node = item("IntPlain", faulty);
            QCOMPARE(parameter->observers, 1);
        }
        QCOMPARE(parameter->observers, 0);
    }

    void shouldShowAReadErrorAsTheValueInTheErrorColour()
    {
        // Given a feature whose value could not be read, for a reason
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto parameter = faulty->parameter("@CameraDevice/IntPlain");
        const auto node = item("IntPlain", faulty);
        auto failed = parameter->realDataCopy();
        failed->readable = false;
        failed->value = QVariant();
        failed->errorText = QStringLiteral("timeout reading register 0x100");
        failed->errorKind = Exception::Timeout;
        // When the parameter layer publishes it
        QSignalSpy updated(node.get(), &FeatureTreeINodeItem::nodeUpdated);
        parameter->publish(failed);
        QVERIFY(updated.count() >= 1);
        // Then the value cell reads the reason, in red, and the tool tip gives it too
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(),
                 QStringLiteral("timeout reading register 0x100"));
        QCOMPARE(node->data(1, Qt::ForegroundRole).value<QBrush>().color(),
                 FeatureTreeINodeItem::errorColour());
        QVERIFY(node->data(0, Qt::ForegroundRole) !=
                QVariant(QBrush(FeatureTreeINodeItem::errorColour())));
        QVERIFY2(node->data(1, Qt::ToolTipRole)
                     .toString()
                     .contains(QStringLiteral("Could not be read: timeout reading register 0x100")),
                 qPrintable(node->data(1, Qt::ToolTipRole).toString()));
        // And the red reads on the default palette: far from the base colour
        const QColor base = QPalette().color(QPalette::Base);
        const QColor red = FeatureTreeINodeItem::errorColour();
        QVERIFY(qAbs(base.lightness() - red.lightness()) > 80);
        QVERIFY(red.red() > 2 * red.green());
    }

    void shouldKeepTheLastValueOfALostCameraGreyed()
    {
        // Given a feature with a value, then the camera lost
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto parameter = faulty->parameter("@CameraDevice/IntPlain");
        const auto node = item("IntPlain", faulty);
        const QString before = node->data(1, Qt::DisplayRole).toString();
        QVERIFY(node->isEditable());
        auto lost = parameter->realDataCopy();
        lost->deviceLost = true;
        parameter->publish(lost);
        // Then the value stays, greyed like a read-only one, and the tool tip says why
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(), before);
        QCOMPARE(node->data(1, Qt::ForegroundRole).value<QBrush>().color(),
                 QPalette().color(QPalette::Disabled, QPalette::Text));
        QVERIFY(node->data(1, Qt::ToolTipRole)
                    .toString()
                    .contains(FeatureTreeINodeItem::lostText().toHtmlEscaped()));
        QVERIFY(node->isDeviceLost());
        QVERIFY(!node->isEditable());
        QVERIFY(!(node->flags(1) & Qt::ItemIsEditable));
    }

    void shouldShowTheErrorOfALostFeatureNeverRead()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto parameter = faulty->parameter("@CameraDevice/IntPlain");
        const auto node = item("IntPlain", faulty);
        auto lost = parameter->realDataCopy();
        lost->deviceLost = true;
        lost->readable = false;
        lost->value = QVariant();
        lost->errorText = QStringLiteral("The connection to the device was lost");
        parameter->publish(lost);
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(),
                 QStringLiteral("The connection to the device was lost"));
        QCOMPARE(node->data(1, Qt::ForegroundRole).value<QBrush>().color(),
                 FeatureTreeINodeItem::errorColour());
    }

    void shouldExplainARestrictionInsteadOfALock()
    {
        // Given a locked feature whose data names what locks it
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto parameter = faulty->parameter("@CameraDevice/IntPlain");
        const auto node = item("IntPlain", faulty);
        auto locked = parameter->realDataCopy();
        locked->locked = true;
        locked->restriction = QStringLiteral("Locked while Exposure Auto is Continuous");
        parameter->publish(locked);
        // Then the tool tip gives that reason, not the one that explains nothing
        const QString tip = node->data(1, Qt::ToolTipRole).toString();
        QVERIFY2(tip.contains(QStringLiteral("Locked while Exposure Auto is Continuous")),
                 qPrintable(tip));
        QVERIFY(!tip.contains(QStringLiteral("Locked while the camera is in this state")));
        // And without a reason the lock still shows
        auto unexplained = parameter->realDataCopy();
        unexplained->locked = true;
        parameter->publish(unexplained);
        QVERIFY(node->data(1, Qt::ToolTipRole)
                    .toString()
                    .contains(QStringLiteral("Locked while the camera is in this state")));
    }

    void shouldExplainTheExposureLockOfTheBuiltInCamera()
    {
        // Given the built-in camera with Exposure Auto off, and the item of Exposure Time
        const auto camera = openSimulatedCamera();
        const auto exposureAuto =
            camera->collection->getParameter(QStringLiteral("@CameraDevice/ExposureAuto"));
        const auto exposureTime = item(QStringLiteral("ExposureTime"), camera->collection);
        QVERIFY(exposureAuto && exposureTime->node());
        exposureAuto->setValue(QStringLiteral("Off"));
        QTRY_VERIFY(exposureTime->isEditable());

        // When the camera takes over the exposure
        exposureAuto->setValue(QStringLiteral("Continuous"));

        // Then the feature can't be changed, and its tool tip says which feature decides it
        QTRY_VERIFY(!exposureTime->isEditable());
        QTRY_VERIFY2(exposureTime->data(1, Qt::ToolTipRole)
                         .toString()
                         .contains(QStringLiteral("Locked while Exposure Auto is Continuous")),
                     qPrintable(exposureTime->data(1, Qt::ToolTipRole).toString()));
        // And once the user has it back, the explanation goes with the lock
        exposureAuto->setValue(QStringLiteral("Off"));
        QTRY_VERIFY(exposureTime->isEditable());
        QVERIFY(!exposureTime->data(1, Qt::ToolTipRole)
                     .toString()
                     .contains(QStringLiteral("Locked while")));
    }

    void shouldShowTheRangeIncrementAndUnitOfNumbers()
    {
        QVERIFY2(item("IntPlain")
                     ->data(1, Qt::ToolTipRole)
                     .toString()
                     .contains(QStringLiteral("<br><nobr>Minimum 0, maximum 1000, increment 1"
                                              "</nobr>")),
                 qPrintable(item("IntPlain")->data(1, Qt::ToolTipRole).toString()));
        const QString floatTip = item("FloatPlain")->data(1, Qt::ToolTipRole).toString();
        QVERIFY2(floatTip.contains(QStringLiteral("<br><nobr>Minimum 1, maximum 1000, no "
                                                  "increment</nobr><br><nobr>Unit: dB</nobr>")),
                 qPrintable(floatTip));
        QVERIFY(!item("EnumFeat")->data(1, Qt::ToolTipRole).toString().contains("Minimum"));
    }

    void shouldShowRegistersAsHexWithoutAnEditor()
    {
        // Given a node the parameter layer reports as a register, with its bytes as hex
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        const auto parameter = faulty->parameter("@CameraDevice/IntPlain");
        parameter->forcedType = RegisterType;
        auto bytes = QSharedPointer<RegisterParameterData>::create();
        bytes->type = RegisterType;
        bytes->name = parameter->getName();
        bytes->featureName = QStringLiteral("IntPlain");
        bytes->accessMode = GenApi::RW;
        bytes->implemented = bytes->available = bytes->readable = bytes->writable = true;
        bytes->length = 4;
        bytes->value = QByteArray::fromHex("0a0b0c0d");
        bytes->displayText = QStringLiteral("0A0B0C0D");
        parameter->publish(bytes);
        const auto node = item("IntPlain", faulty);
        // Then its value reads as hex and it has no editor
        QCOMPARE(node->editorType(), int(FeatureTreeItem::NoEditorType));
        QVERIFY(!node->usePersistentEditor());
        QCOMPARE(node->data(1, Qt::DisplayRole).toString(), QStringLiteral("0A0B0C0D"));
        QVERIFY(node->data(1, Qt::ToolTipRole).toString().contains(QStringLiteral("Register,")));
    }

    void shouldWriteAutomaticFloatsAsPlainDecimals()
    {
        // Given a float in automatic notation whose value needs an exponent in 'g' form
        const auto camera = openSimulatedCamera();
        const auto node = item("ExposureTimeAbs", camera->collection);
        camera->collection->getParameter("@CameraDevice/ExposureTime")->setValue(1e7);
        // Then the cell writes it out
        QTRY_COMPARE(node->data(1, Qt::DisplayRole).toString(), QString::fromUtf8("10000000 µs"));
    }

    void shouldLoadChildrenOnlyWhenAsked()
    {
        // Given a category item with a model as extension
        FeatureTreeModel model;
        testModel(&model);
        model.addParameterCollection(m_collection, "Camera", "@CameraDevice", false);
        auto* root = model.rootItem()->child(0);
        auto* kinds = root->findByFullNameShallow("@CameraDevice/Kinds");
        QVERIFY(kinds);
        // Then it knows it has children before loading them, and loads them on first count
        QVERIFY(kinds->hasChildren());
        QCOMPARE(kinds->childCount(), 5);
        QCOMPARE(kinds->child(0)->getFullName(), QStringLiteral("@CameraDevice/EnumFeat"));
        QVERIFY(!kinds->child(0)->hasChildren());
    }
};

QTEST_MAIN(tst_FeatureTreeINodeItem)
#include "tst_featuretreeinodeitem.moc"
