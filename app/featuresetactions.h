#pragma once

#include <featureset.h>
#include <featuresettransfer.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>

#include <functional>

class QAction;
class QWidget;

namespace Backend {
class CameraPool;
} // namespace Backend
namespace Plugin {
namespace CameraPool {
class IBaseInfo;
} // namespace CameraPool
namespace FeatureTree {
class IFeatureTreeControlService;
} // namespace FeatureTree
} // namespace Plugin

namespace VantoViewer {

class FeatureSetCompareDialog;
class FeatureSetReportDialog;

// The Camera menu's "Save Features…", "Load Features…" and "Compare Features…" for the active
// camera. The camera is read and written on its device thread; the window keeps answering and
// a long load can be cancelled.
class FeatureSetActions : public QObject {
    Q_OBJECT
public:
    using BaseInfoPtr = QSharedPointer<Plugin::CameraPool::IBaseInfo>;
    // The open cameras other than the active one, to compare with.
    using CameraList = std::function<QList<BaseInfoPtr>()>;

    FeatureSetActions(QSharedPointer<Backend::CameraPool> pool, CameraList cameras,
                      QWidget* window);
    ~FeatureSetActions() override;

    QAction* saveAction() const { return m_save; }
    QAction* loadAction() const { return m_load; }
    QAction* compareAction() const { return m_compare; }

    void setCamera(const BaseInfoPtr& info);
    void setControlService(Plugin::FeatureTree::IFeatureTreeControlService* service);

    // The same without asking for a file.
    void saveTo(const QString& fileName);
    void loadFrom(const QString& fileName);
    void compareWithFile(const QString& fileName);
    void compareWithCamera(const BaseInfoPtr& other);

    // The last report and comparison shown, while they are open.
    FeatureSetReportDialog* reportDialog() const;
    FeatureSetCompareDialog* compareDialog() const;

Q_SIGNALS:
    void message(const QString& text);
    void failed(const QString& text);
    // A load finished: every line it applied, with the value before and the value written;
    // `source` is the file's name, without its folder.
    void featureSetLoaded(QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                          const Backend::FeatureSetTransfer::LoadReport& report,
                          const QString& source);
    void compared();

private:
    void askAndSave();
    void askAndLoad();
    void askAndCompare();
    // Saves `info`'s features on its device thread and hands them to `done`.
    void snapshot(const BaseInfoPtr& info,
                  const std::function<void(const Backend::FeatureSet&)>& done);
    void showComparison(const Backend::FeatureSet& left, const Backend::FeatureSet& right,
                        const QString& leftName, const QString& rightName);
    void updateActions();
    // A transfer is over: the job goes and the actions are offered again.
    void finish(QObject* job);

    QSharedPointer<Backend::CameraPool> m_pool;
    CameraList m_cameras;
    QWidget* m_window;  // not owned
    QAction* m_save;    // child
    QAction* m_load;    // child
    QAction* m_compare; // child
    BaseInfoPtr m_camera;
    QPointer<Plugin::FeatureTree::IFeatureTreeControlService> m_controlService;
    QPointer<FeatureSetReportDialog> m_report;         // child of the window
    QPointer<FeatureSetCompareDialog> m_compareDialog; // child of the window
    int m_busy = 0;                                    // transfers under way
};

} // namespace VantoViewer
