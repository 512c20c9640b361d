#pragma once

#include <QWidget>

class QTableView;

namespace VantoViewer {

class ChangeJournal;
class ChangesModel;

// The "Changes" panel: the active camera's change journal, the newest entry kept in view.
class ChangesPanel : public QWidget {
    Q_OBJECT
public:
    explicit ChangesPanel(ChangeJournal* journal, QWidget* parent = nullptr);

    QTableView* view() const { return m_view; }
    ChangesModel* model() const { return m_model; }

private:
    ChangesModel* m_model; // child
    QTableView* m_view;    // child
};

} // namespace VantoViewer
