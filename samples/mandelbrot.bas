10 ' The Mandelbrot set in letters.
20 DIM SHADE$(16)
30 FOR I=0 TO 16:READ SHADE$(I):NEXT I
40 FOR ROW=-10 TO 10
50 B=ROW/8:L$=""
60 FOR COLUMN=-44 TO 22
70 A=COLUMN/20
80 GOSUB *ITERATE
90 L$=L$+SHADE$(N)
100 NEXT COLUMN
110 PRINT L$
120 NEXT ROW
130 END
140 ' N: how many steps from 0 stay near it, 16 at most.
150 *ITERATE
160 X=0:Y=0:N=0
170 WHILE N<16 AND X*X+Y*Y<=4
180 T=X*X-Y*Y+A
190 Y=2*X*Y+B
200 X=T
210 N=N+1
220 WEND
230 RETURN
240 DATA " ","."," ",".",",",":",";","-","+","=","*","o","%","&","#","@","M"
