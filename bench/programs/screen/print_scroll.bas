10 ' wanted 200000 lines a second
20 SCREEN 3:CLS 3:DEFINT A-Z:A$="A line of ordinary text"
30 FOR I=1 TO 200000
40 PRINT A$
50 NEXT I
60 PRINT "CHECK";200000
