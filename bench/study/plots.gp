# plots.gp: the page's pictures. gnuplot -e "data='FOLDER'; out='FOLDER'" plots.gp
# Colours in the middle, on no ground of their own, so that they are seen on a light page and on a dark one.
set terminal svg size 760,360 dynamic font 'sans-serif,13'
set border 3 linecolor rgb '#808080'
set tics nomirror textcolor rgb '#808080'
set key textcolor rgb '#808080'
set xlabel textcolor rgb '#808080'
set ylabel textcolor rgb '#808080'
set style line 1 linecolor rgb '#909090' linewidth 5          # truth
set style line 2 linecolor rgb '#c05050' linewidth 1 pointtype 2 pointsize 0.5 # raw
set style line 3 linecolor rgb '#e08000' linewidth 2          # acceleration
set style line 4 linecolor rgb '#2080d0' linewidth 2          # velocity

set output out.'/city.svg'
set multiplot
set origin 0, 0
set size 0.58, 1
set size ratio -1
set xlabel 'metres east'
set ylabel 'metres north'
set xtics 100
set ytics 100
set xrange [-20:540]
set yrange [-100:260]
unset key
plot data.'/city.dat' using 2:3 with lines linestyle 1, \
     '' using 4:5 with points linestyle 2, \
     '' using 6:7 with lines linestyle 3, \
     '' using 8:9 with lines linestyle 4
set origin 0.56, 0
set size 0.44, 1
set size noratio
set xlabel 'seconds'
set ylabel 'position error in metres'
set xtics 20
set ytics 10
set xrange [0:105]
set yrange [0:55]
set key inside right top
plot 1/0 with lines linestyle 1 title 'truth', \
     data.'/city.dat' using 1:10 with lines linestyle 2 title 'raw fixes', \
     '' using 1:11 with lines linestyle 3 title 'acceleration', \
     '' using 1:12 with lines linestyle 4 title 'velocity'
unset multiplot
set origin 0, 0
set size 1, 1
set xtics autofreq
set ytics autofreq
set autoscale

set output out.'/stop.svg'
set size noratio
set xlabel 'seconds since the brake'
set ylabel 'position error in metres'
set key inside right top
plot data.'/stop.dat' using 1:2 with lines linestyle 2 title 'raw fixes', \
     '' using 1:3 with lines linestyle 3 title 'acceleration', \
     '' using 1:4 with lines linestyle 4 title 'velocity'

set output out.'/random.svg'
set logscale y
set yrange [0.1:100]
set ytics (0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100)
set xrange [1:500]
set xlabel '500 random drives, sorted'
set ylabel 'error, for each of the raw fixes'''
set key inside left top
plot 1 with lines linestyle 2 title 'raw fixes', \
     data.'/random.dat' every 5 using 1:2 with lines linestyle 3 title 'acceleration', \
     '' every 5 using 1:3 with lines linestyle 4 title 'velocity'
