10 ' The calendar of the first months of a year, from arithmetic alone.
20 DEFINT A-Z
30 YEAR=2028:MONTHS=4
40 DIM M$(12)
50 FOR M=1 TO 12:READ M$(M):NEXT M
60 FOR M=1 TO MONTHS
70 GOSUB *FIRSTDAY
80 GOSUB *MONTHLENGTH
90 GOSUB *SHOWMONTH
100 NEXT M
110 END
120 ' W: the weekday of the first of month M, 0 is Sunday. January and
130 ' February count as the last months of the year before.
140 *FIRSTDAY
150 Y=YEAR:K=M:IF K<3 THEN K=K+12:Y=Y-1
160 W=(13*(K+1)\5+Y+Y\4-Y\100+Y\400) MOD 7
170 RETURN
180 ' L: the days of month M.
190 *MONTHLENGTH
200 L=31:IF M=4 OR M=6 OR M=9 OR M=11 THEN L=30
210 IF M<>2 THEN RETURN
220 L=28:IF YEAR MOD 4=0 AND YEAR MOD 100<>0 OR YEAR MOD 400=0 THEN L=29
230 RETURN
240 *SHOWMONTH
250 PRINT "      ";M$(M);YEAR
260 PRINT " Su Mo Tu We Th Fr Sa"
270 FOR I=1 TO W:PRINT "   ";:NEXT I
280 FOR D=1 TO L
290 PRINT USING "###";D;
300 W=W+1:IF W=7 THEN W=0:PRINT
310 NEXT D
320 IF W>0 THEN PRINT
330 PRINT
340 RETURN
350 DATA January,February,March,April,May,June
360 DATA July,August,September,October,November,December
