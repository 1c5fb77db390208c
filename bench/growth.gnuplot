#!/usr/bin/env -S gnuplot -c
# growth.gnuplot TABLE PICTURE: draws the curves that OverlayBench --growth=TABLE has written as an SVG picture.
# bench/measure OverlayBench measures them anew and draws docs/images/growth.svg.
set terminal svg size 960,680 font "DejaVu Sans,13" background "white" linewidth 1
set output ARG2
set multiplot layout 2,2 margins 0.075,0.965,0.09,0.945 spacing 0.095,0.15
set logscale xy
set grid xtics ytics linecolor "#dddddd" linetype 1
set border 3 linecolor "#666666"
set tics nomirror scale 0.5 textcolor "#333333"
set xtics ("10" 10, "100" 100, "1,000" 1000, "10,000" 10000, "100,000" 100000)
set xrange [8:130000]
set format y ""
set ytics ("10 ns" 0.01, "100 ns" 0.1, "1 µs" 1, "10 µs" 10, "100 µs" 100, "1 ms" 1000, "10 ms" 10000, "100 ms" 100000, "1 s" 1000000)
set xlabel "objects" offset 0,0.5 textcolor "#333333"
set key top left Left reverse samplen 2.5
titles = "'mouse move over polygons' 'press beside all polygons' 'paint of polygons' 'drag of one polygon: move and frame'"
curves = "'mouse move' 'press beside all' 'paint' 'drag of one'"
low = "0.09 0.009 90 9"
high = "100 100 3000000 1000000"
do for [i=1:4] {
    set title word(titles, i) font ",14"
    set yrange [word(low, i):word(high, i)]
    plot ARG1 index word(curves, i) using 1:3 with linespoints title "Qt graphics view" linecolor "#d95f02" linewidth 2 dashtype 2 pointtype 4 pointsize 0.6, \
        ARG1 index word(curves, i) using 1:2 with linespoints title "VostelObj" linecolor "#1b6fb3" linewidth 2.5 pointtype 7 pointsize 0.6
}
unset multiplot
