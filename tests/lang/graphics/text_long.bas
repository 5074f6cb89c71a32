10 ' A text longer than the console scrolls once; its rows above the console are lost.
20 SCREEN 3:CLS 3:LINE(0,160)-(639,239),1,BF:FOR I=0 TO 23:PRINT "row";I:NEXT I
30 CONSOLE 10,5:LOCATE 0,12:FOR I=0 TO 5:A$=A$+STRING$(40,CHR$(65+I))+STRING$(40,CHR$(97+I)):NEXT I
40 COLOR 6:PRINT A$;:LOCATE 40,5
