10 ' 40 columns: each dot of a character is two wide, its height stays.
20 WIDTH 40,25:SCREEN 0:CLS 3:CIRCLE(320,100),150,2,,,,F,1
30 FOR I=1 TO 7:COLOR I:LOCATE I*4,I*3:PRINT "Wide text";I:NEXT I
40 LOCATE 38,0:PRINT "XY";:LOCATE 39,24:PRINT;:LOCATE 0,23
