#include "featuretreeusecaseservice.h"
#include "nodescoperesources.h"
#include "testsupport.h"

#include <languagehelper/languagehelper.h>
#include <parametercollection/parameterdata.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QStringList>
#include <QVariantMap>
#include <QtTest>

using Plugin::Nodescope::IFeatureTreeUseCaseService;
using Plugin::Nodescope::Internal::CFeatureTreeUseCaseService;

namespace {

struct Loaded {
    QVariantMap useCases;
    QVariantMap basic;
    QStringList log;
};

// The use cases of one folder, read in the current user language, with everything logged.
Loaded load(const QString& folder)
{
    MessageCapture capture;
    CFeatureTreeUseCaseService service(nullptr, folder);
    service.initialize();
    return {service.getUseCaseMap(), service.getBasicUseCaseMap(), capture.lines()};
}

QString testFolder(const QString& name)
{
    return QStringLiteral(":/usecasestest/") + name + QLatin1Char('/');
}

Loaded loadTestFolder(const QString& name)
{
    return load(testFolder(name));
}

Loaded loadShipped()
{
    MessageCapture capture;
    CFeatureTreeUseCaseService service(nullptr);
    service.initialize();
    return {service.getUseCaseMap(), service.getBasicUseCaseMap(), capture.lines()};
}

QVariantMap mapOf(std::initializer_list<std::pair<QString, QStringList>> entries)
{
    QVariantMap map;
    for (const auto& entry : entries) {
        map.insert(entry.first, QVariant(entry.second));
    }
    return map;
}

// The shipped use cases in file order: English, Japanese, Chinese and Korean name, and the
// number of features.
struct ShippedUseCase {
    const char* en;
    const char* ja;
    const char* zh;
    const char* ko;
    int count;
};

const ShippedUseCase kShipped[] = {
    {"Controlling the brightness", "明るさの制御", "控制亮度", "밝기 제어", 23},
    {"Changing the resolution", "解像度の変更", "更改分辨率", "해상도 변경", 9},
    {"Controlling the frame rate", "フレームレートの制御", "控制帧率", "프레임 레이트 제어", 36},
    {"Saving camera settings for later use", "後で使用するためのカメラ設定の保存",
     "保存相机设置以供日后使用", "나중에 사용할 수 있도록 카메라 설정 저장", 5},
    {"Configuring the trigger behavior of the camera", "カメラのトリガー動作の設定",
     "配置相机的触发行为", "카메라의 트리거 동작 구성", 43},
    {"Checking whether the camera is losing image data",
     "カメラで画像データが失われていないかの確認", "检查相机是否丢失图像数据",
     "카메라의 이미지 데이터 손실 여부 확인", 11},
    {"Optimizing the image quality", "画質の最適化", "优化图像质量", "이미지 품질 최적화", 54},
    {"Keeping the image quality consistent under changing light conditions",
     "照明条件が変化しても画質を一定に保つ", "在光照条件变化时保持图像质量稳定",
     "조명 조건이 변해도 이미지 품질을 일정하게 유지", 20},
};

QString shippedName(const ShippedUseCase& useCase, const QString& language)
{
    const char* text = language == QLatin1String("ja")   ? useCase.ja
                       : language == QLatin1String("zh") ? useCase.zh
                       : language == QLatin1String("ko") ? useCase.ko
                                                         : useCase.en;
    return QString::fromUtf8(text);
}

const QString kBasic = QStringLiteral("Nodescope - Basic");
const QString kLossCheck = QStringLiteral("Checking whether the camera is losing image data");
const QString kNoTranslation = QStringLiteral("Couldn't find correct translation for usecase: ");

} // namespace

class tst_FeatureTreeUseCaseService : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void shouldStartWithEmptyMaps();
    void shouldListKoreanOnlyUseCaseUnderKoreanTextWhenUserLanguageIsEnglish();
    void shouldKeepFirstTextOfRepeatedLanguageCodeAndLogTheDrop();
    void shouldPutOnlyExactlyNamedBasicUseCaseIntoBasicMap();
    void shouldRecogniseBasicUseCaseByItsNameInUserLanguage();
    void shouldKeepParametersOfLastReadUseCaseWithSameName();
    void shouldListUseCaseWithoutParametersWithEmptyList();
    void shouldLeaveMapsEmptyAndLogNothingForFolderWithoutJsonFile();
    void shouldLeaveMapsEmptyAndLogNothingForMissingFolder();

    void shouldSkipUnreadableFileAndReadTheOthers();
    void shouldSkipUnreadableFileInPlainFolder();
    void shouldLogParserErrorAndSkipBrokenFile();
    void shouldSkipFileWithoutUseCasesArray();
    void shouldSkipUseCaseWithoutNameArray();
    void shouldIgnoreIncompleteNameEntryWithoutMessage();
    void shouldDropNameEntryWithEmptyOrNonTextLanguageCode();
    void shouldSkipUseCaseWithoutValidName();
    void shouldFallBackToSmallestLanguageCode_data();
    void shouldFallBackToSmallestLanguageCode();
    void shouldLeaveOutEmptyParameters();

    void shouldNameShippedUseCasesInUserLanguage_data();
    void shouldNameShippedUseCasesInUserLanguage();
    void shouldNameShippedUseCasesInEnglishForUnknownLanguage();
    void shouldShipEightUseCasesWithTheirFeatureCounts();
    void shouldListResolutionFeaturesInFileOrder();
    void shouldTakeOnlyLossCheckFeaturesFromStreamGrabber();
    void shouldShipBasicUseCaseWithThirteenCameraFeatures();
    void shouldOfferOnlyFeaturesTheSimulatedCameraKnows();
    void shouldHandOutCopiesOfItsMaps();
    void shouldOfferUseCaseMapAsPropertyWithoutSignallingOnInitialize();
};

void tst_FeatureTreeUseCaseService::initTestCase()
{
    Plugin::Nodescope::initNodescopeResources();
    QVERIFY(QFile::exists(QStringLiteral(":/nodescope/usecases/usecases.json")));
    QVERIFY(QFile::exists(testFolder(QStringLiteral("koonly")) + QStringLiteral("usecases.json")));
}

void tst_FeatureTreeUseCaseService::init()
{
    // Independent of the locale of the machine running the tests.
    LanguageHelper::setLanguageId(QStringLiteral("en"));
}

void tst_FeatureTreeUseCaseService::cleanupTestCase()
{
    LanguageHelper::setLanguageId(QString());
}

void tst_FeatureTreeUseCaseService::shouldStartWithEmptyMaps()
{
    CFeatureTreeUseCaseService service(nullptr);
    QVERIFY(service.getUseCaseMap().isEmpty());
    QVERIFY(service.getBasicUseCaseMap().isEmpty());
}

void tst_FeatureTreeUseCaseService::
    shouldListKoreanOnlyUseCaseUnderKoreanTextWhenUserLanguageIsEnglish()
{
    const Loaded loaded = loadTestFolder(QStringLiteral("koonly"));

    const QString korean = QString::fromUtf8("밝기 제어");
    QCOMPARE(loaded.useCases, mapOf({{korean, {QStringLiteral("@CameraDevice/Gain")}}}));
    QVERIFY(loaded.basic.isEmpty());
    QCOMPARE(loaded.log, QStringList{kNoTranslation + korean});
}

void tst_FeatureTreeUseCaseService::shouldKeepFirstTextOfRepeatedLanguageCodeAndLogTheDrop()
{
    const Loaded loaded = loadTestFolder(QStringLiteral("duplicatecode"));

    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("First text"), {QStringLiteral("@CameraDevice/Width")}}}));
    QCOMPARE(loaded.log, QStringList{QStringLiteral(
                             "Language code already known or broken. Dropping en,Second text")});
}

void tst_FeatureTreeUseCaseService::shouldPutOnlyExactlyNamedBasicUseCaseIntoBasicMap()
{
    // Given a file other than basic.json that holds the basic name in three letter cases
    const Loaded loaded = loadTestFolder(QStringLiteral("basicname"));

    // Then only the exact spelling is taken for the basic use case
    QCOMPARE(loaded.basic, mapOf({{kBasic, {QStringLiteral("@CameraDevice/Width")}}}));
    QCOMPARE(
        loaded.useCases,
        mapOf({{QStringLiteral("nodescope - basic"), {QStringLiteral("@CameraDevice/Height")}},
               {QStringLiteral("Nodescope - basic"), {QStringLiteral("@CameraDevice/OffsetX")}},
               {QStringLiteral("Exposure"), {QStringLiteral("@CameraDevice/ExposureTime")}}}));
    QVERIFY(loaded.log.isEmpty());
}

void tst_FeatureTreeUseCaseService::shouldRecogniseBasicUseCaseByItsNameInUserLanguage()
{
    // Given a Japanese user: "Exposure" is called "Nodescope - Basic" in Japanese and comes last
    LanguageHelper::setLanguageId(QStringLiteral("ja"));

    const Loaded loaded = loadTestFolder(QStringLiteral("basicname"));

    QCOMPARE(loaded.basic, mapOf({{kBasic, {QStringLiteral("@CameraDevice/ExposureTime")}}}));
    QCOMPARE(
        loaded.useCases,
        mapOf({{QStringLiteral("nodescope - basic"), {QStringLiteral("@CameraDevice/Height")}},
               {QStringLiteral("Nodescope - basic"), {QStringLiteral("@CameraDevice/OffsetX")}}}));
    QCOMPARE(loaded.log, QStringList({kNoTranslation + kBasic,
                                      kNoTranslation + QStringLiteral("nodescope - basic"),
                                      kNoTranslation + QStringLiteral("Nodescope - basic")}));
}

void tst_FeatureTreeUseCaseService::shouldKeepParametersOfLastReadUseCaseWithSameName()
{
    // Given "Same" twice in a.json, and "Across files" in a.json and then in b.json
    const Loaded loaded = loadTestFolder(QStringLiteral("samename"));

    QCOMPARE(
        loaded.useCases,
        mapOf({{QStringLiteral("Same"),
                {QStringLiteral("@CameraDevice/Height"), QStringLiteral("@CameraDevice/OffsetY")}},
               {QStringLiteral("Across files"), {QStringLiteral("@CameraDevice/BlackLevel")}}}));
    QVERIFY(loaded.log.isEmpty());
}

void tst_FeatureTreeUseCaseService::shouldListUseCaseWithoutParametersWithEmptyList()
{
    const Loaded loaded = loadTestFolder(QStringLiteral("noparameters"));

    QCOMPARE(loaded.useCases, mapOf({{QStringLiteral("Without parameters"), {}},
                                     {QStringLiteral("Parameters not an array"), {}}}));
    QCOMPARE(loaded.useCases.value(QStringLiteral("Without parameters")).userType(),
             int(QMetaType::QStringList));
    QVERIFY(loaded.log.isEmpty());
}

void tst_FeatureTreeUseCaseService::shouldLeaveMapsEmptyAndLogNothingForFolderWithoutJsonFile()
{
    // Given a folder with a text file and a "usecases.json.orig" only
    const Loaded loaded = loadTestFolder(QStringLiteral("empty"));

    QVERIFY(loaded.useCases.isEmpty());
    QVERIFY(loaded.basic.isEmpty());
    QCOMPARE(loaded.log, QStringList());
}

void tst_FeatureTreeUseCaseService::shouldLeaveMapsEmptyAndLogNothingForMissingFolder()
{
    const Loaded loaded = loadTestFolder(QStringLiteral("nosuchfolder"));

    QVERIFY(loaded.useCases.isEmpty());
    QVERIFY(loaded.basic.isEmpty());
    QCOMPARE(loaded.log, QStringList());
}

void tst_FeatureTreeUseCaseService::shouldSkipUnreadableFileAndReadTheOthers()
{
    // Given "broken.json", a folder that matches the filter but cannot be read, before good.json
    const Loaded loaded = loadTestFolder(QStringLiteral("notreadable"));

    QCOMPARE(loaded.log, QStringList{QStringLiteral("broken.json not readable")});
    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Still read"), {QStringLiteral("@CameraDevice/Width")}}}));
}

void tst_FeatureTreeUseCaseService::shouldSkipUnreadableFileInPlainFolder()
{
    // Given a plain folder with a subfolder "broken.json" and a readable good.json
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("broken.json")));
    QVERIFY(QFile::copy(testFolder(QStringLiteral("notreadable")) + QStringLiteral("good.json"),
                        folder.filePath(QStringLiteral("good.json"))));

    const Loaded loaded = load(folder.path() + QLatin1Char('/'));

    QCOMPARE(loaded.log, QStringList{QStringLiteral("broken.json not readable")});
    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Still read"), {QStringLiteral("@CameraDevice/Width")}}}));
}

void tst_FeatureTreeUseCaseService::shouldLogParserErrorAndSkipBrokenFile()
{
    // Given a.json cut off in the middle, before the intact b.json
    QJsonParseError error;
    QFile broken(testFolder(QStringLiteral("parseerror")) + QStringLiteral("a.json"));
    QVERIFY(broken.open(QIODevice::ReadOnly));
    QVERIFY(QJsonDocument::fromJson(broken.readAll(), &error).isNull());

    const Loaded loaded = loadTestFolder(QStringLiteral("parseerror"));

    QCOMPARE(loaded.log, QStringList{error.errorString()});
    QCOMPARE(loaded.log, QStringList{QStringLiteral("unterminated array")});
    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Still read"), {QStringLiteral("@CameraDevice/Width")}}}));
}

void tst_FeatureTreeUseCaseService::shouldSkipFileWithoutUseCasesArray()
{
    // Given files without "UseCases", with an object, with a string and a top-level array,
    // then an intact z.json
    const Loaded loaded = loadTestFolder(QStringLiteral("nousecases"));

    const QString message = QStringLiteral("UseCases has no valid content");
    QCOMPARE(loaded.log, QStringList({message, message, message, message}));
    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Still read"), {QStringLiteral("@CameraDevice/Width")}}}));
}

void tst_FeatureTreeUseCaseService::shouldSkipUseCaseWithoutNameArray()
{
    // Given use cases without "Name", with a text, an empty array, an object, and a number in
    // place of a use case, then an intact one
    const Loaded loaded = loadTestFolder(QStringLiteral("badname"));

    const QString message =
        QStringLiteral("Name not existent or Name content is not an array. Skipping use case...");
    QCOMPARE(loaded.log, QStringList({message, message, message, message, message}));
    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Kept"), {QStringLiteral("@CameraDevice/Width")}}}));
}

void tst_FeatureTreeUseCaseService::shouldIgnoreIncompleteNameEntryWithoutMessage()
{
    // Given name entries without "LanguageCode", without "Text", and one that is no object
    const Loaded loaded = loadTestFolder(QStringLiteral("incompletename"));

    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Kept name"), {QStringLiteral("@CameraDevice/Width")}}}));
    QCOMPARE(loaded.log, QStringList());
}

void tst_FeatureTreeUseCaseService::shouldDropNameEntryWithEmptyOrNonTextLanguageCode()
{
    const Loaded loaded = loadTestFolder(QStringLiteral("emptycode"));

    QCOMPARE(loaded.useCases,
             mapOf({{QStringLiteral("Kept"), {QStringLiteral("@CameraDevice/Width")}}}));
    QCOMPARE(
        loaded.log,
        QStringList(
            {QStringLiteral("Language code already known or broken. Dropping ,Empty code"),
             QStringLiteral("Language code already known or broken. Dropping ,Numeric code")}));
}

void tst_FeatureTreeUseCaseService::shouldSkipUseCaseWithoutValidName()
{
    // Given one use case with incomplete name entries only, one with an empty code only
    const Loaded loaded = loadTestFolder(QStringLiteral("nonameleft"));

    const QString message = QStringLiteral("No valid Name existent. Skipping use case...");
    QCOMPARE(
        loaded.log,
        QStringList({message,
                     QStringLiteral("Language code already known or broken. Dropping ,Broken code"),
                     message}));
    QVERIFY(loaded.useCases.isEmpty());
    QVERIFY(loaded.basic.isEmpty());
}

void tst_FeatureTreeUseCaseService::shouldFallBackToSmallestLanguageCode_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("log");

    const QString japanese = QString::fromUtf8("明るさの制御");
    const QString chinese = QString::fromUtf8("控制亮度");
    QTest::newRow("en: ja before zh") << "en" << japanese << QStringList{kNoTranslation + japanese};
    QTest::newRow("ko: ja before zh") << "ko" << japanese << QStringList{kNoTranslation + japanese};
    QTest::newRow("zh: own text") << "zh" << chinese << QStringList();
    QTest::newRow("ja: own text") << "ja" << japanese << QStringList();
}

void tst_FeatureTreeUseCaseService::shouldFallBackToSmallestLanguageCode()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    QFETCH(QStringList, log);
    // Given a use case named in "zh" first and "ja" second
    LanguageHelper::setLanguageId(language);

    const Loaded loaded = loadTestFolder(QStringLiteral("fallback"));

    QCOMPARE(loaded.useCases, mapOf({{name, {QStringLiteral("@CameraDevice/Gain")}}}));
    QCOMPARE(loaded.log, log);
}

void tst_FeatureTreeUseCaseService::shouldLeaveOutEmptyParameters()
{
    // Given an empty text, a number and null between two features
    const Loaded loaded = loadTestFolder(QStringLiteral("emptyparameter"));

    QCOMPARE(
        loaded.useCases,
        mapOf({{QStringLiteral("With gaps"),
                {QStringLiteral("@CameraDevice/Width"), QStringLiteral("@CameraDevice/Height")}}}));
    const QString message = QStringLiteral("Skipping empty parameter...");
    QCOMPARE(loaded.log, QStringList({message, message, message}));
}

void tst_FeatureTreeUseCaseService::shouldNameShippedUseCasesInUserLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("log");

    // basic.json is English only on purpose, and still recognised in every language.
    QTest::newRow("en") << "en" << QStringList();
    QTest::newRow("ja") << "ja" << QStringList{kNoTranslation + kBasic};
    QTest::newRow("zh") << "zh" << QStringList{kNoTranslation + kBasic};
    QTest::newRow("ko") << "ko" << QStringList{kNoTranslation + kBasic};
}

void tst_FeatureTreeUseCaseService::shouldNameShippedUseCasesInUserLanguage()
{
    QFETCH(QString, language);
    QFETCH(QStringList, log);
    LanguageHelper::setLanguageId(language);

    const Loaded loaded = loadShipped();

    QStringList expected;
    for (const ShippedUseCase& useCase : kShipped) {
        const QString name = shippedName(useCase, language);
        expected.append(name);
        QVERIFY2(loaded.useCases.contains(name), qPrintable(name));
        QCOMPARE(loaded.useCases.value(name).toStringList().size(), useCase.count);
    }
    // Sorted by display name, not in file order.
    std::sort(expected.begin(), expected.end());
    QCOMPARE(loaded.useCases.keys(), expected);
    QCOMPARE(loaded.basic.keys(), QStringList{kBasic});
    QCOMPARE(loaded.log, log);
}

void tst_FeatureTreeUseCaseService::shouldNameShippedUseCasesInEnglishForUnknownLanguage()
{
    LanguageHelper::setLanguageId(QStringLiteral("fr"));

    const Loaded loaded = loadShipped();

    QStringList names;
    QStringList log{kNoTranslation + kBasic};
    for (const ShippedUseCase& useCase : kShipped) {
        names.append(QString::fromUtf8(useCase.en));
        log.append(kNoTranslation + QString::fromUtf8(useCase.en));
    }
    std::sort(names.begin(), names.end());
    QCOMPARE(loaded.useCases.keys(), names);
    QCOMPARE(loaded.basic.keys(), QStringList{kBasic});
    QCOMPARE(loaded.log, log);
}

void tst_FeatureTreeUseCaseService::shouldShipEightUseCasesWithTheirFeatureCounts()
{
    const Loaded loaded = loadShipped();

    QCOMPARE(loaded.useCases.size(), 8);
    for (const ShippedUseCase& useCase : kShipped) {
        const QVariant features = loaded.useCases.value(QString::fromUtf8(useCase.en));
        QCOMPARE(features.userType(), int(QMetaType::QStringList));
        QCOMPARE(features.toStringList().size(), useCase.count);
        QCOMPARE(features.toStringList().removeDuplicates(), 0);
    }
    QVERIFY(!loaded.useCases.contains(kBasic));
}

void tst_FeatureTreeUseCaseService::shouldListResolutionFeaturesInFileOrder()
{
    const Loaded loaded = loadShipped();

    QCOMPARE(
        loaded.useCases.value(QStringLiteral("Changing the resolution")).toStringList(),
        QStringList({QStringLiteral("@CameraDevice/Width"), QStringLiteral("@CameraDevice/Height"),
                     QStringLiteral("@CameraDevice/BinningHorizontal"),
                     QStringLiteral("@CameraDevice/BinningHorizontalMode"),
                     QStringLiteral("@CameraDevice/BinningVertical"),
                     QStringLiteral("@CameraDevice/BinningVerticalMode"),
                     QStringLiteral("@CameraDevice/DecimationHorizontal"),
                     QStringLiteral("@CameraDevice/DecimationVertical"),
                     QStringLiteral("@CameraDevice/VntScalingFactor")}));
}

void tst_FeatureTreeUseCaseService::shouldTakeOnlyLossCheckFeaturesFromStreamGrabber()
{
    const Loaded loaded = loadShipped();

    for (auto it = loaded.useCases.cbegin(); it != loaded.useCases.cend(); ++it) {
        int fromStreamGrabber = 0;
        for (const QString& name : it.value().toStringList()) {
            if (name.startsWith(QLatin1String("@StreamGrabber0/"))) {
                ++fromStreamGrabber;
            } else {
                QVERIFY2(name.startsWith(QLatin1String("@CameraDevice/")), qPrintable(name));
            }
        }
        QCOMPARE(fromStreamGrabber, it.key() == kLossCheck ? 6 : 0);
    }
}

void tst_FeatureTreeUseCaseService::shouldShipBasicUseCaseWithThirteenCameraFeatures()
{
    const Loaded loaded = loadShipped();

    QStringList expected;
    for (const char* feature :
         {"Width", "Height", "PixelFormat", "ExposureTime", "ExposureTimeAbs", "ExposureAuto",
          "Gain", "GainRaw", "GainAuto", "BalanceWhiteAuto", "AcquisitionFrameRateEnable",
          "AcquisitionFrameRateAbs", "AcquisitionFrameRate"}) {
        expected.append(QStringLiteral("@CameraDevice/") + QLatin1String(feature));
    }
    QCOMPARE(loaded.basic, mapOf({{kBasic, expected}}));
}

void tst_FeatureTreeUseCaseService::shouldOfferOnlyFeaturesTheSimulatedCameraKnows()
{
    // Given both the ordinary and the basic use cases, against the built-in simulated camera
    const Loaded loaded = loadShipped();
    const auto camera = openSimulatedCamera();
    QVERIFY(camera->collection);

    QVariantMap all = loaded.useCases;
    all.insert(loaded.basic);
    int checked = 0;
    QStringList notImplemented;
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        for (const QString& name : it.value().toStringList()) {
            const auto parameter = camera->collection->getParameter(name);
            QVERIFY2(parameter, qPrintable(it.key() + QStringLiteral(": ") + name));
            const auto data = parameter->getParameterData();
            QVERIFY2(data, qPrintable(name));
            if (!data->implemented) {
                notImplemented.append(it.key() + QStringLiteral(": ") + name);
            }
            ++checked;
        }
    }
    QCOMPARE(checked, 23 + 9 + 36 + 5 + 43 + 11 + 54 + 20 + 13);
    // The basic use case also names the older features (ExposureTimeAbs, GainRaw,
    // AcquisitionFrameRateAbs); the simulated camera keeps them beside the standard ones. Only
    // the GigE Vision counters are not implemented: a simulated stream has no packets.
    for (const QString& name : notImplemented) {
        QVERIFY2(name.endsWith(QLatin1String("@StreamGrabber0/Statistic_Missed_Frame_Count")) ||
                     name.endsWith(QLatin1String("@StreamGrabber0/Statistic_Resend_Request_Count")),
                 qPrintable(name));
    }
    QCOMPARE(notImplemented.size(), 2);
}

void tst_FeatureTreeUseCaseService::shouldHandOutCopiesOfItsMaps()
{
    CFeatureTreeUseCaseService service(nullptr);
    service.initialize();

    QVariantMap useCases = service.getUseCaseMap();
    QVariantMap basic = service.getBasicUseCaseMap();
    useCases.clear();
    basic.insert(QStringLiteral("Mine"), QVariant(QStringList()));

    QCOMPARE(service.getUseCaseMap().size(), 8);
    QCOMPARE(service.getBasicUseCaseMap().keys(), QStringList{kBasic});
}

void tst_FeatureTreeUseCaseService::shouldOfferUseCaseMapAsPropertyWithoutSignallingOnInitialize()
{
    CFeatureTreeUseCaseService service(nullptr);
    IFeatureTreeUseCaseService& interface = service;
    QSignalSpy changed(&interface, &IFeatureTreeUseCaseService::useCaseMapChanged);

    service.initialize();

    QCOMPARE(changed.count(), 0);
    const QVariant property = interface.property("useCaseMap");
    QVERIFY(property.isValid());
    QCOMPARE(property.toMap(), service.getUseCaseMap());
    QCOMPARE(property.toMap().size(), 8);
}

QTEST_MAIN(tst_FeatureTreeUseCaseService)
#include "tst_featuretreeusecaseservice.moc"
