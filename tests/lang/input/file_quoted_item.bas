10 OPEN "T" FOR OUTPUT AS #1:PRINT #1,"x,"+CHR$(34)+"a,b;c"+CHR$(34)+",y":CLOSE:OPEN "T" FOR INPUT AS #1:INPUT #1,A$,B$,C$:PRINT A$;"|";B$;"|";C$
