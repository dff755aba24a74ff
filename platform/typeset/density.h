#pragma once
// A device of any density: for it the text engine measures type without a screen or a printer.
#include <QPaintDevice>

namespace velm {

struct Density final : QPaintDevice {
    int dpi = 96;
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 1;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return dpi;
        default:
            return QPaintDevice::metric(metric);
        }
    }
};

} // namespace velm
