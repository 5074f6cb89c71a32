10 ' COLOR@ colours text that stands there, and not what is printed later.
20 SCREEN 3:CLS 3:FOR I=0 TO 9:PRINT "Colour of a field of cells":NEXT I
30 COLOR@(0,1)-(9,1),2:COLOR@(10,2)-(20,5),4:COLOR@(5,7)-(5,9),6:COLOR@(3,7)-(3,7)
40 COLOR@(9,0)-(0,0),3:COLOR@(0,9)-(79,24),5:COLOR@(12,7)-(14,7),8+1:LOCATE 12,3:PRINT "new";:LOCATE 0,12
