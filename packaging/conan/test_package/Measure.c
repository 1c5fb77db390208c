#include <stdint.h>
#include <stdio.h>
#include <vostel.h>

int main(void)
{
    static const uint8_t samples[6][8] = {{0}, {0, 0, 3, 3, 3}, {0, 0, 3, 3, 3}};
    const VostelPoint    corners[2] = {{2, 1}, {5, 3}};
    VostelMeasures       measures = {sizeof measures};
    VostelObject         region = 0;
    int32_t              canvas = 0;
    if (vostel_canvas_create(64, 48, &canvas) ||
        vostel_image_show(canvas, VOSTEL_U8, samples, 8, 6, 0, 0) ||
        vostel_object_add(canvas, VOSTEL_RECTANGLE, corners, 2, &region) ||
        vostel_measure(canvas, region, 0, &measures))
        return puts(vostel_last_message()), 1;
    printf("vostel %s measures %g with the mean %g\n", vostel_version(), measures.area, measures.mean);
    return measures.area == 6 && measures.mean == 3 ? 0 : 1;
}
