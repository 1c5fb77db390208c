#pragma once

namespace vostel::viewer {

class Document;
class MainWindow;

// What the menus hold, each in the order of its entries.
void AddFileCommands(MainWindow& window);
void AddEditCommands(MainWindow& window);
void AddViewCommands(MainWindow& window);
void AddDrawCommands(MainWindow& window);
void AddMeasureCommands(MainWindow& window);
void AddCalibrationCommands(MainWindow& window);    // of the menu of measures
void AddImageCommands(MainWindow& window);
void AddProcessCommands(MainWindow& window);
void AddWindowCommands(MainWindow& window);
void AddHelpCommands(MainWindow& window);

// True when it was saved; asks for a path where there is none yet.
bool SaveSession(MainWindow& window, Document& document, bool asAnother);

}
