// Checks a folder of financial statements through the installed library and
// prints the result code and the number of files.
#include <iostream>

#include <QZICsvConvXML.h>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    QZICsvConvXbrlResultXML result = QZICsvConvXML().CsvCheckToXbrl2(argv[1], argv[2]);
    std::cout << result.Result << " " << result.XbrlCsvFileCount << "\n";
    return result.Result == PROCESS_OK ? 0 : 1;
}
