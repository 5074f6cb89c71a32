10 ' You think of a number, the computer finds it.
20 PRINT "Think of a number from 1 to 100."
30 PRINT "Answer H if it is higher, L if it is lower, Y if I have it."
40 LOW=1:HIGH=100:TRIES=0
50 *ASK
60 IF LOW>HIGH THEN PRINT "You must have changed your number!":GOTO *AGAIN
70 G=INT((LOW+HIGH)/2):TRIES=TRIES+1
80 PRINT "Is it";G;
90 INPUT A$
100 IF A$="H" OR A$="h" THEN LOW=G+1:GOTO *ASK
110 IF A$="L" OR A$="l" THEN HIGH=G-1:GOTO *ASK
120 IF A$="Y" OR A$="y" THEN *FOUND
130 PRINT "H, L or Y, please.":TRIES=TRIES-1
140 GOTO *ASK
150 *FOUND
160 PRINT "Found it after";TRIES;"questions."
170 *AGAIN
180 INPUT "Once more (Y or N)";A$
190 IF A$="Y" OR A$="y" THEN 40
200 PRINT "Good bye."
