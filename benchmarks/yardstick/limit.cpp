// The yardstick: what one core can do at best. The program's work on one row (read, parse, precess,
// write four cells), written by hand for one pair of notations with nothing of the program in it: no
// records, no messages, no exact rounding. benchmarks/all_paths.py times the program against it.
// It stands as it was measured with: only for speed, in a style of its own, and never formatted.
//
// limit.cpp: the practical limit of one core for "read list, parse, precess (IAU 1976), render four cells, write list".
//   g++ -O2 -std=c++17 limit.cpp -o limit
//   ./limit IN OUT [STAGE] [SEP]     STAGE io|parse|trig|format|all (cumulative; default all), SEP: separator written inside a cell
// Reads  H M S<TAB or blank>+D M S, the three fields of a cell split by ' ' or ':' (decimals allowed in the last field).
// Writes four tab-separated cells: input RA (2 decimals), input Dec (1), output RA (2), output Dec (1).
// Epochs: JD 2433282.5 -> 2451544.5. The angles are formed once; each row has 2 sincos, 1 asin (or acos), 1 atan2.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
static double now(){timespec t;clock_gettime(CLOCK_MONOTONIC,&t);return t.tv_sec+1e-9*t.tv_nsec;}
static const double P10[]={1,1e-1,1e-2,1e-3,1e-4,1e-5,1e-6,1e-7,1e-8,1e-9,1e-10,1e-11,1e-12};
static inline const char*num(const char*p,const char*e,double&v){       // digits[.digits]
  uint64_t n=0;int f=0;
  while(p<e&&unsigned(*p-'0')<10)n=n*10+unsigned(*p++-'0');
  if(p<e&&*p=='.'){++p;while(p<e&&unsigned(*p-'0')<10){n=n*10+unsigned(*p++-'0');++f;}}
  v=double(n)*P10[f<12?f:12];return p;}
static inline const char*three(const char*p,const char*e,double&v){     // a:b:c -> a+b/60+c/3600
  double a,b=0,c=0;p=num(p,e,a);
  if(p<e&&(*p==' '||*p==':')){p=num(p+1,e,b);if(p<e&&(*p==' '||*p==':'))p=num(p+1,e,c);}
  v=(b/60.0+a)+c/3600.0;return p;}
static inline char*two(char*o,unsigned v){o[0]=char('0'+v/10);o[1]=char('0'+v%10);return o+2;}
static inline char*fmt(char*o,double v,int dec,char sep){               // fields cut by truncation, last one rounded, no carry
  unsigned A=unsigned(v);double m=(v-A)*60.0;unsigned B=unsigned(m);double s=(m-B)*60.0;
  o=two(o,A);*o++=sep;o=two(o,B);*o++=sep;
  if(dec==2){unsigned n=unsigned(s*100.0+0.5);o=two(o,n/100);*o++='.';return two(o,n%100);}
  unsigned n=unsigned(s*10.0+0.5);o=two(o,n/10);*o++='.';*o++=char('0'+n%10);return o;}
int main(int c,char**v){
  if(c<3){fprintf(stderr,"limit IN OUT [io|parse|trig|format|all] [SEP]\n");return 2;}
  const char*st=c>3?v[3]:"all";char sep=c>4?v[4][0]:' ';
  int stage=!strcmp(st,"io")?0:!strcmp(st,"parse")?1:!strcmp(st,"trig")?2:!strcmp(st,"format")?3:4;
  double t0=now();
  int fd=open(v[1],O_RDONLY);struct stat sb;if(fd<0||fstat(fd,&sb))return 1;size_t len=sb.st_size;
  const char*base=(const char*)mmap(0,len,PROT_READ,MAP_PRIVATE|MAP_POPULATE,fd,0);if(base==MAP_FAILED)return 1;
  int of=(stage==4||stage==0)?open(v[2],O_WRONLY|O_CREAT|O_TRUNC,0644):-1;
  static char buf[1<<20];char*o=buf,*lim=buf+sizeof buf-256;
  const double J1=2433282.5,J2=2451544.5,T=(J1-2451545.0)/36525.0,t=(J2-J1)/36525.0,AS=4.848136805555555e-6;
  const double ze=((2306.2181+1.39656*T-0.000139*T*T)*t+(0.30188-0.000344*T)*t*t+0.017998*t*t*t)*AS,
    z=((2306.2181+1.39656*T-0.000139*T*T)*t+(1.09468+0.000066*T)*t*t+0.018203*t*t*t)*AS,
    th=((2004.3109-0.8533*T-0.000217*T*T)*t-(0.42665+0.000217*T)*t*t-0.041833*t*t*t)*AS;
  const double ct=cos(th),sth=sin(th),TP=6.2831853072;
  const char*p=base,*e=base+len;double sum=0;uint64_t rows=0;
  while(p<e){
    const char*nl=(const char*)memchr(p,'\n',e-p);if(!nl)nl=e;
    if(stage==0){                                   // same bytes in, 47 bytes out, nothing computed
      if(o>lim){if(write(of,buf,o-buf)<0)return 1;o=buf;}
      memset(o,'x',46);o[46]='\n';o+=47;++rows;p=nl+1;continue;}
    double h,d;const char*q=three(p,nl,h);while(q<nl&&(*q=='\t'||*q==' '))++q;
    bool neg=false;if(q<nl&&(*q=='-'||*q=='+'))neg=*q++=='-';three(q,nl,d);if(neg)d=-d;
    ++rows;p=nl+1;if(stage==1){sum+=h+d;continue;}
    double ra=h*0.2617993878,de=d*0.0174532925,w=ra+ze,cd=cos(de),sd=sin(de),cw=cos(w),
      A=cd*sin(w),B=ct*cd*cw-sth*sd,C=sth*cd*cw+ct*sd,r=atan2(A,B)+z;
    if(r<0)r+=TP;else if(r>TP)r-=TP;
    double nd;if(fabs(d)>89.0){nd=acos(sqrt(A*A+B*B));if(C<0)nd=-nd;}else nd=asin(C);
    double oh=3.8197186342*r,od=57.2957795131*nd;
    if(stage==2){sum+=oh+od;continue;}
    if(o>lim){if(stage==4&&write(of,buf,o-buf)<0)return 1;o=buf;}
    o=fmt(o,h,2,sep);*o++='\t';*o++=neg?'-':'+';o=fmt(o,fabs(d),1,sep);*o++='\t';
    o=fmt(o,oh,2,sep);*o++='\t';*o++=od<0?'-':'+';o=fmt(o,fabs(od),1,sep);*o++='\n';
    if(stage==3)sum+=o[-2];
  }
  if(of>=0){if(write(of,buf,o-buf)<0)return 1;close(of);}
  double t1=now();
  fprintf(stderr,"%s rows %llu  %.1f ns/row  check %.6f\n",st,(unsigned long long)rows,(t1-t0)*1e9/rows,sum);
}
