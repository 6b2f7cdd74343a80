// Third boss, 300 x 200: a winged dreadnought, four cannon mounts, three cores.
#include "common.inc"
#include "enemies.inc"
#include "bosses.inc"
#local O = array[1];

#declare Side = union {
  // swept wing in three layers
  object { Plate(array[11]{<10,70>,<40,82>,<76,78>,<112,92>,<138,98>,<149.5,84>,<149.5,20>,<140,-30>,<128,-52>,<84,-44>,<10,-40>}, -10, 0, 6) Hull(C_GunD) }
  object { Plate(array[8]{<20,62>,<72,66>,<108,80>,<132,86>,<140,74>,<137,44>,<92,40>,<20,34>}, -1, 6, 3) Hull(C_Gun) }
  object { Plate(array[6]{<24,28>,<90,34>,<128,40>,<126,4>,<80,-6>,<24,-12>}, -1, 5, 3) Hull(C_Gun) }
  object { Plate(array[5]{<24,-18>,<78,-12>,<84,-36>,<60,-40>,<24,-36>}, -1, 4, 2.4) Hull(C_GunD) }
  // oxide stripes
  object { Plate(array[4]{<64,62>,<78,64>,<70,38>,<56,37>}, 5, 7.4, 1) Paint(C_Oxide) }
  object { Plate(array[4]{<54,30>,<68,31>,<60,-8>,<46,-10>}, 4, 6.6, 1) Paint(C_Oxide) }
  object { Plate(array[4]{<112,78>,<131,83>,<136,72>,<118,66>}, 5, 8, 1.2) Paint(C_Oxide) }
  // wing tip blade
  object { Plate(array[6]{<141,60>,<149.5,80>,<149.5,-40>,<143,-86>,<137,-60>,<138,-10>}, 0, 9, 3) Hull(C_GunD) }
  object { Plate(array[4]{<144,30>,<147.4,32>,<147,-40>,<143,-72>}, 8, 12, 1.2) Metal(C_Bone) }
  // engines along the rear edge
  #for (I, 0, 2)
    cylinder { <36 + 22*I,64,0>, <36 + 22*I,84 - 2*I,0>, 8 Paint(C_GunDD) }
    torus { 7.4, 1.6 translate <36 + 22*I, 82 - 2*I, 0> Metal(C_Gun) }
    object { Jet(36 + 22*I, 83 - 2*I, 2, 5.6, -(9 + 4*OPEN), C_Amber, C_Yellow) }
  #end
  // outer cannon mount
  object { Plate(array[8]{<90,30>,<118,30>,<124,14>,<124,-44>,<116,-66>,<92,-66>,<84,-44>,<84,14>}, 2, 18, 4.4) Hull(C_GunD) }
  object { Plate(array[6]{<94,24>,<114,24>,<118,12>,<112,4>,<96,4>,<90,12>}, 17, 22, 2) Paint(C_Oxide) }
  object { Core(104, -12, 18, 11, 6, C_Red, C_Yellow) }
  object { Cannon(96.5, -44, -86, 18, 4.8) }
  object { Cannon(111.5, -44, -86, 18, 4.8) }
  Vent(104, -36, 18, 22, 8, 4)
  Lamps(95, 14, 113, 14, 22, 5, 1.4, C_Amber)
  Lamps(87.4, 8, 87.4, -42, 18, 8, 1.2, C_Red)
  Lamps(120.6, 8, 120.6, -42, 18, 8, 1.2, C_Red)
  // turrets and small work on the wing
  Turret(80, 52, 6, 7, 10 + 14*OPEN)
  Turret(124, 56, 6, 6, 12 + 14*OPEN)
  Turret(72, 12, 5, 7, -6 - 10*OPEN)
  Turret(66, -26, 4, 5.4, 4 + 12*OPEN)
  Vent(46, 50, 6, 14, 14, 5)
  Vent(100, 62, 6, 16, 9, 4)
  Vent(131, 20, 4, 7, 22, 7)
  Lamps(84, 74, 108, 76, 5, 6, 1.3, C_Amber)
  Lamps(28, -33, 56, -36, 4, 7, 1.3, C_Amber)
  Fittings(28, 40, 36, 58, 6, 8, 3)
  Fittings(30, -6, 42, 24, 5, 10, 4)
  Fittings(74, 22, 80, 30, 5, 4, 6)
  Fittings(88, 46, 118, 52, 6, 9, 8)
  // inner cannon mount
  object { Plate(array[7]{<11,-30>,<28,-26>,<33,-44>,<33,-64>,<28,-74>,<13,-74>,<9,-60>}, 4, 20, 3.4) Hull(C_Gun) }
  object { Plate(array[4]{<15,-36>,<27,-34>,<28,-46>,<14,-46>}, 19, 22, 1.2) Paint(C_Oxide) }
  object { Cannon(20, -60, -92, 20, 5.2) }
  Lamps(15, -52, 27, -52, 20, 4, 1.3, C_Red)
}
Both(Side)
// central hull
object { SymPlate(array[11]{<0,99>,<10,98>,<20,88>,<27,62>,<29,20>,<25,-10>,<17,-34>,<12,-58>,<9,-84>,<5,-96>,<0,-99>}, 0, 24, 6.5) Hull(C_GunD) }
object { SymPlate(array[7]{<0,92>,<8,90>,<15,78>,<19,56>,<17,44>,<8,40>,<0,40>}, 23, 32, 3.4) Hull(C_Gun) }
object { SymPlate(array[6]{<0,84>,<5,82>,<9,72>,<10,58>,<6,52>,<0,51>}, 31, 38, 2.4) Paint(C_Oxide) }
object { Plate(array[4]{<-6,66>,<6,66>,<7,61>,<-7,61>}, 37, 39, 0.6) Glow(C_Amber, 0.7 + 0.3*OPEN) }
Both(object { Plate(array[4]{<19,36>,<24,34>,<21,-8>,<17,-6>}, 22, 27, 1.4) Paint(C_Oxide) })
Both(object { Lamps(20.6, 30, 19.4, -4, 27, 6, 1.4, C_Red) })
Both(object { Fittings(11, 46, 13, 68, 32, 4, 9) })
object { Core(0, 14, 24, 17, 8, C_Red, C_Yellow) }
object { SymPlate(array[5]{<0,-14>,<11,-17>,<9,-40>,<4,-70>,<0,-74>}, 22, 30, 2.6) Hull(C_Gun) }
object { Core(0, -30, 30, 6, 6, C_Red, C_Yellow) }
object { SymPlate(array[4]{<0,-44>,<3.4,-46>,<2,-66>,<0,-70>}, 29, 33, 1) Paint(C_Oxide) }
object { SymPlate(array[5]{<0,-76>,<5.6,-78>,<5,-90>,<3,-97>,<0,-98>}, 20, 26, 1.6) Paint(C_GunDD) }
sphere { 0, 1 scale <3.2, 5, 3> translate <0, -87, 26> Glow((OPEN ? C_Yellow : C_Red), 0.7 + 0.3*OPEN) }
