10 ' 20 rows: the characters stand in the middle of higher cells.
20 WIDTH 80,20:SCREEN 3:CLS 3:LINE(0,0)-(639,19),1,BF:LINE(0,40)-(639,59),2,BF
30 FOR I=0 TO 18:LOCATE I*3,I:COLOR I MOD 7+1:PRINT "Row";I;"gjpqy_|";:NEXT I
40 COLOR 7:LOCATE 70,19:PRINT "last row";:LOCATE 0,18
