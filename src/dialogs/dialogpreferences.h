#pragma once

#include <QDialog>
#include <QStringList>
#include <QVector>

class CheckBoxComPort;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QScrollArea;
struct PortInfo;

/// Which ports to listen on, whether to set a device's clock when it starts sending, and the language of the
/// texts. Stores on OK only.
class DialogPreferences : public QDialog {
    Q_OBJECT

public:
    explicit DialogPreferences(QWidget *parent);

    /// What stands in for the list of ports where none of `present` has a name to listen on: which ports are
    /// there, and how they get one by a link in `linkFolder`, which is empty where there are no such links.
    static QString noPortText(const QVector<PortInfo> &present, const QString &linkFolder);

public slots:
    /// Stores what is ticked, and what was put into the preferences elsewhere since the dialog opened; a port
    /// that is absent now is forgotten.
    void accept() override;

private slots:
    void on_preferencesButtonRefresh_clicked();
    void on_preferencesButtonReset_clicked();

private:
    void createPortList();
    void createButtons();
    void createLanguageBox();
    void fitToLetters();
    void addRow(const QString &portName, const QString &toolTip);
    void addNote(const QString &text);
    QStringList checkedPorts() const;
    void checkPorts(const QStringList &names);

    QScrollArea *area;
    QFormLayout *rows; ///< in `area`
    QVector<CheckBoxComPort *> boxes; ///< in row order
    QStringList portsBefore; ///< in the preferences when the dialog opened
    QCheckBox *sendTimeBox;
    QComboBox *languageBox; ///< the data of an item is its code, empty for the system's
};
