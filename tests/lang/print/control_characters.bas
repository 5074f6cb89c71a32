10 PRINT "A"+CHR$(10)+"B"+CHR$(7)+"C"+CHR$(28)+"D"+CHR$(9)+"E"
