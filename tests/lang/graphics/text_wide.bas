10 ' A wide character in the last column is cut there; its other half is a cell of the next row.
20 SCREEN 3:CLS 3:LINE(0,0)-(639,399),1,BF
30 LOCATE 75,3:PRINT "日本語日本";:LOCATE 79,10:PRINT "漢";:PRINT "x":COLOR 4
40 LOCATE 10,15:PRINT "日本語":LOCATE 10,15:PRINT "a"
