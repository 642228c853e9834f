#pragma once

#include <QDialog>
#include <QVector>

class CheckBoxComPort;
class QCheckBox;
class QFormLayout;
class QLabel;
class QScrollArea;

/// Which ports to listen on, and whether to set a device's clock when it starts sending. Stores on OK only.
class DialogPreferences : public QDialog {
    Q_OBJECT

public:
    explicit DialogPreferences(QWidget *parent);

public slots:
    /// Stores what is ticked; a port that is absent now is forgotten.
    void accept() override;

private slots:
    void on_preferencesButtonRefresh_clicked();
    void on_preferencesButtonReset_clicked();

private:
    void createPortList();
    void createButtons();
    void addRow(const QString &portName, const QString &toolTip);
    QStringList checkedPorts() const;
    void checkPorts(const QStringList &names);

    QScrollArea *area;
    QFormLayout *rows; ///< in `area`
    QLabel *emptyNote; ///< stands in for the rows where no port is present
    QVector<CheckBoxComPort *> boxes; ///< in row order
    QCheckBox *sendTimeBox;
};
