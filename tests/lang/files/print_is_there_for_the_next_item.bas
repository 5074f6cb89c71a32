10 ' What is printed is in the file when a later item, or the next statement, looks at it.
20 OPEN "O" FOR OUTPUT AS #1:OPEN "O" FOR INPUT AS #2:DIM B(3):B(1)=5
30 PRINT #1,"a";EOF(2)
40 LINE INPUT #2,A$:PRINT A$;EOF(2)
50 PRINT #1,"b";:PRINT EOF(2)
60 PRINT #1,7;C;B(1);A$;B(EOF(2)+1);:WRITE #1,C,B(1)
70 LINE INPUT #2,A$:PRINT A$;EOF(2)
