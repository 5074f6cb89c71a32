10 ' COLOR takes 0 for the foreground of graphics, and the border is no background.
20 SCREEN 3:CLS 3:LINE(0,0)-(9,9),7,BF:COLOR ,,,0:PSET(5,5):PRINT POINT(5,5);
30 COLOR 7,2,5:PRESET(6,6):PRINT POINT(6,6)
