// Makes the selections of this folder, and for each area the mask that ImageJ shows of it:
//
//     xvfb-run java -jar /usr/share/java/ij.jar -batch make-selections.ijm FOLDER/
//
// The files here come from ImageJ 1.53t, Debian's package imagej.

folder = getArgument();
setBatchMode(true);
newImage("image", "8-bit black", 64, 48, 1);

// Saves the selection under a name, and its mask if it is an area.
function keep(name)
{
    saveAs("Selection", folder + name + ".roi");
    if (selectionType() <= 4 || selectionType() == 9) {
        run("Create Mask");
        saveAs("PNG", folder + name + ".png");
        close();
        selectImage("image");
    }
    run("Select None");
}

makeRectangle(5, 7, 20, 11);
keep("rectangle");
makeRectangle(5.3, 7.6, 20.5, 11.7);
keep("rectangle-sub-pixel");
makeRectangle(5, 7, 30, 21, 12);
keep("rectangle-rounded");
makeOval(4, 6, 21, 15);
keep("oval");
makeOval(4, 6, 40, 40);
keep("circle");
makeOval(4.4, 6.7, 21.5, 15.3);
keep("oval-sub-pixel");
makePolygon(5, 5, 50, 9, 40, 40, 20, 12, 8, 44);
keep("polygon");
makeSelection("polygon", newArray(5.25, 50.1, 40.3, 20.2, 8.8), newArray(5.5, 9.7, 40.9, 12.4, 44.6));
keep("polygon-sub-pixel");
makePolygon(5, 5, 50, 9, 40, 40, 20, 12, 8, 44);
run("Fit Spline");
keep("polygon-spline");
makeSelection("freehand", newArray(3, 30, 60, 33, 9), newArray(3, 9, 30, 44, 30));
keep("freehand");
makeSelection("freehand", newArray(3.3, 30.1, 60.7, 33.2, 9.9), newArray(3.4, 9.2, 30.1, 44.6, 30.3));
keep("freehand-sub-pixel");
makeEllipse(10, 10, 50, 35, 0.4);
keep("ellipse");
makeRotatedRectangle(10, 10, 50, 30, 12);
keep("rotated-rectangle");
makeLine(3, 4, 50, 30);
keep("line");
makeLine(3.25, 4.5, 50.75, 30.125, 5);
Roi.setStrokeColor("#336699");
keep("line-wide");
makeArrow(6, 8, 44, 22, "filled");
keep("arrow");
makeSelection("polyline", newArray(3, 30, 60), newArray(3, 9, 30));
keep("polyline");
makeSelection("freeline", newArray(3, 30, 60, 61), newArray(3, 9, 30, 31));
keep("freeline");
makeSelection("angle", newArray(3, 30, 60), newArray(33, 9, 30));
keep("angle");
makeSelection("point", newArray(3, 30, 60), newArray(33, 9, 30));
keep("points");
makeSelection("point", newArray(3.25, 30.5), newArray(33.75, 9.125));
keep("points-sub-pixel");
setFont("SansSerif", 14, "bold");
makeText("first\nsecond", 12, 9);
keep("text");
makePolygon(5, 5, 50, 9, 40, 40);
Roi.setName("named " + fromCharCode(233, 10003));
Roi.setStrokeColor(255, 128, 0);
Roi.setStrokeWidth(2.5);
keep("styled");
makeRectangle(5, 7, 20, 11);
Roi.setFillColor("#80112233");
Roi.setPosition(2);
keep("filled-placed");
makeRectangle(5, 7, 20, 11);
setKeyDown("shift");
makeOval(40, 20, 20, 20);
setKeyDown("none");
keep("composite");
setColor(255);
fillOval(10, 10, 25, 20);
doWand(20, 20);
keep("traced");
