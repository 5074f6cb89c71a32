10 ' Only the console's rows scroll; colours go up with their text.
20 SCREEN 3:CLS 3:LINE(0,160)-(639,239),1,BF:LOCATE 0,0:PRINT "above":LOCATE 0,20:PRINT "below"
30 CONSOLE 10,5:LOCATE 0,10:FOR I=1 TO 12:COLOR I MOD 7+1:PRINT "line";I:NEXT I:COLOR 7
40 LOCATE 40,2:PRINT "outside";
