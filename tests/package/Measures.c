/* A host in C that another compiler built: a header and an import library are all it has. */

#include <vostel.h>

#include <stdint.h>
#include <stdio.h>

int main(void)
{
    uint16_t          ramp[20 * 10];
    const VostelPoint points[] = {{2.0, 2.0}, {12.0, 2.0}, {12.0, 8.0}, {2.0, 8.0}};
    VostelMeasures    measures = {0};
    VostelObject      object = 0;
    int32_t           canvas = -1;
    int               i;

    for (i = 0; i < 20 * 10; ++i)
        ramp[i] = (uint16_t)(1000 * (i % 20));
    measures.size = (uint32_t)sizeof measures;
    if (vostel_canvas_create(64, 48, &canvas) != VOSTEL_OK ||
        vostel_image_show(canvas, VOSTEL_U16, ramp, 20, 10, 0, 0) != VOSTEL_OK ||
        vostel_object_add(canvas, VOSTEL_POLYGON, points, 4, &object) != VOSTEL_OK ||
        vostel_measure(canvas, object, 0, &measures) != VOSTEL_OK) {
        puts(vostel_last_message());
        return 1;
    }
    printf("%.1f px2, %ld pixels, mean %.1f\n", measures.area, (long)measures.pixels, measures.mean);
    vostel_canvas_destroy(canvas);
    return measures.area == 60.0 && measures.pixels == 60 && measures.mean == 6500.0 ? 0 : 1;
}
