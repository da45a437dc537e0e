// The equation's solutions dialog: the solution points of the curve on screen in a sortable
// two-column list, their count, pi units, copying, and a click marking a point on the graph.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>

#include "equation/EquationCurve.h"
#include "failure/ProcedureNames.h"

class QCheckBox;
class QLabel;
class QSortFilterProxyModel;
class QTableView;

namespace curvemill {

// Control identifiers (each widget's objectName); the pi boxes read as in the Math dialog.
namespace solutions_ids {
inline constexpr int kList = 1180;
inline constexpr int kCount = 1181;
inline constexpr int kXInPi = 1073;
inline constexpr int kYInPi = 1074;
inline constexpr int kCopy = 1182;
inline constexpr int kInformation = 1183;
inline constexpr int kSquares = 1184;
inline constexpr int kClose = 2;
inline constexpr int kHelp = 9;
}  // namespace solutions_ids

// The curve's solutions as rows; the sort role gives the plain number, so columns sort by value.
class SolutionTableModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit SolutionTableModel(const EquationCurve& curve, QObject* parent = nullptr)
        : QAbstractTableModel(parent), curve_(curve) {}
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void setPiUnits(bool x, bool y);
    // The curve changed: every row is read again.
    void reload();

  private:
    const EquationCurve& curve_;
    bool xInPi_ = false;
    bool yInPi_ = false;
};

// "%.10g", or "pi*%.10g" of value / pi.
QString solutionText(double value, bool piUnits);

class EquationSolutionsDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    explicit EquationSolutionsDialog(const EquationCurve& curve, QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcEquationMathDialog; }
    // Reads the curve again (a new equation was computed); the mark goes.
    void refresh();
    // The selected rows as lines of "x<TAB>y", in the order shown.
    QString selectedText() const;
    void copySelection() const;
    void setSquares(bool on);

  Q_SIGNALS:
    // A row was clicked (marked, with its point), or the mark went (closing, a new curve).
    void pointMarked(bool marked, double x, double y);
    void informationRequested();
    // "Draw Squares Around Points" was switched: a view option of the graph.
    void squaresToggled(bool on);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    const EquationCurve& curve_;
    SolutionTableModel* model_;
    QSortFilterProxyModel* sorted_;
    QTableView* table_;
    QLabel* count_;
    QCheckBox* xInPi_;
    QCheckBox* yInPi_;
    QCheckBox* squares_;
};

}  // namespace curvemill
