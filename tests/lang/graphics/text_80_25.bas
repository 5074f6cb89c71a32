10 ' Text of all colours over graphics; black text is seen there too.
20 SCREEN 3:CLS 3:FOR I=0 TO 7:LINE(I*80,0)-(I*80+79,399),I,BF:NEXT I
30 FOR I=0 TO 7:COLOR I:LOCATE 0,2+I*2
40 FOR J=0 TO 7:PRINT "Az0 #@qg ";:NEXT J:NEXT I
50 COLOR 7:LOCATE 78,24:PRINT "*";:LOCATE 0,23
