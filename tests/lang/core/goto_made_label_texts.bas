10 ' A label made by the program is looked for again each time.
20 A$="L"+CHR$(65+I):GOTO A$
30 *LA:PRINT "a":I=1:A$="":GOTO 20
40 *LB:PRINT "b"
