#include "graph3d/ui/ThreeDCustomizationControls.h"

#include <QSlider>

namespace curvemill {

QSlider* custom3dSlider(int id, int low, int high, int position) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(custom3dName(id));
    slider->setRange(low, high);
    slider->setPageStep(1);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(1);
    slider->setValue(position);
    return slider;
}

}  // namespace curvemill
