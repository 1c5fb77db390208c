// Opens a list of selections on an image in the ROI Manager and tells what ImageJ measures of each, one line each:
//
//     xvfb-run java -jar /usr/share/java/ij.jar -batch measure-selections.ijm "IMAGE;ZIP;FOLDER/"
//
// It leaves FOLDER/measures.csv, and FOLDER/1.raw and so on, the masks of the areas. It ends with the line "done".

arguments = split(getArgument(), ";");
folder = arguments[2];
setBatchMode(true);
open(arguments[0]);
image = getImageID();
roiManager("Open", arguments[1]);
columns = newArray("Area", "Mean", "StdDev", "Min", "Max", "RawIntDen", "Median", "Length", "Angle");
lines = "";
for (i = 0; i < roiManager("count"); i++) {
    roiManager("select", i);
    Roi.getFloatBounds(x, y, width, height);
    line = "" + Roi.getName + "\t" + Roi.getType + "\t" + d2s(x, 9) + "\t" + d2s(y, 9) + "\t" + d2s(width, 9) + "\t" + d2s(height, 9);
    for (c = 0; c < columns.length; c++)
        line += "\t" + d2s(getValue(columns[c]), 9);
    lines += line + "\t" + Roi.getStrokeColor + "\t" + Roi.getStrokeWidth + "\t" + Roi.getFillColor + "\n";
    if (selectionType() <= 4 || selectionType() == 9) {
        run("Create Mask");
        saveAs("Raw Data", folder + (i + 1) + ".raw");
        close();
        selectImage(image);
    }
}
File.saveString(lines + "done\n", folder + "measures.csv");
