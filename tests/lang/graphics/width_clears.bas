10 ' WIDTH empties the text and makes all rows the console, but leaves the page.
20 SCREEN 3:CLS 3:LINE(0,0)-(639,399),2,B:PRINT "gone":CONSOLE 5,3:WIDTH 40,20:PRINT "new":LINE(0,0)-(639,399),4
