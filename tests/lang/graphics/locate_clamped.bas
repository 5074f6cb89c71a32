10 ' LOCATE beyond the screen lands on its last column and row, below 0 on the first.
20 SCREEN 3:CLS 3:LOCATE 100,100:PRINT "!";:LOCATE -5,-5:PRINT "?";:LOCATE 30:PRINT "x";:LOCATE ,7:PRINT "y";
30 LOCATE 200,3:PRINT "z";:LOCATE 0,10
