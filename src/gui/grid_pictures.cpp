#include "gui/grid_pictures.h"

#include <QPainter>
#include <QPolygonF>

#include "feetable/fee_grid.h"

namespace kwfy::gui {

namespace {

constexpr int kSize = 12;

// A right-pointing triangle: "this row is named by the current formula".
void DrawMarker(QPainter& p) {
    p.setBrush(QColor(200, 40, 40));
    p.setPen(Qt::NoPen);
    p.drawPolygon(QPolygonF({QPointF(2, 1), QPointF(11, 6), QPointF(2, 11)}));
}

// A formula sign in a box: the header of the column the markers appear in.
void DrawHeaderIcon(QPainter& p) {
    p.setPen(QColor(40, 70, 140));
    p.setBrush(QColor(225, 235, 250));
    p.drawRect(0, 0, kSize - 1, kSize - 1);
    p.drawLine(3, 6, 9, 6);
    p.drawLine(6, 3, 6, 9);
}

}  // namespace

QPixmap GridPicture(int id) {
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    if (id == kMarkPicture) {
        DrawMarker(p);
    } else if (id == kHeaderMarkPicture) {
        DrawHeaderIcon(p);
    } else {
        p.setBrush(Qt::darkGray);
        p.setPen(Qt::NoPen);
        p.drawEllipse(3, 3, 6, 6);
    }
    return pixmap;
}

}  // namespace kwfy::gui
