// The source stands in the page by itself. This adds the list of its slices, of which only the rows in sight are
// ever made, the whole slice lit up, the keys, the search, the choice of kinds and the map beside the source.
(() => {
  const ROW = 28; // pixels, as in the style sheet
  const MOST_LIT = 2000; // pieces of one slice: more would make the keys slow
  const root = document.body;
  const main = document.querySelector('main');
  const nav = document.querySelector('nav');
  const search = nav.querySelector('input');
  const status = nav.querySelector('[role=status]');
  const rows = nav.querySelector('.rows');
  const list = rows.querySelector('ul');
  const map = document.querySelector('.map');
  const boxes = [...document.querySelectorAll('header input')];

  // One line each: kind, first byte, last byte, first piece, last piece, text.
  const slices = document.getElementById('slices').textContent.split('\n').slice(0, -1);
  const kindOf = number => slices[number][0];
  const partsOf = number => slices[number].split('\t');
  const off = new Set();
  let shown = slices.map((_, number) => number);
  let current = -1;
  let lit = [];

  // The place among the rows in sight of the first slice from `number` on.
  function placeOf(number) {
    let low = 0;
    let high = shown.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (shown[middle] < number) low = middle + 1; else high = middle;
    }
    return low;
  }

  function rowFor(place) {
    const number = shown[place];
    const [kind, first, last, , , text] = partsOf(number);
    const row = document.createElement('li');
    const link = document.createElement('a');
    const bytes = document.createElement('small');
    row.className = kind;
    row.style.top = place * ROW + 'px';
    row.setAttribute('aria-setsize', shown.length);
    row.setAttribute('aria-posinset', place + 1);
    link.id = 'e' + number;
    link.href = '#s' + number;
    link.className = number === current ? 'on' : '';
    const label = document.createElement('bdi');
    label.textContent = text || '(no text)';
    bytes.textContent = first + '–' + last;
    link.append(label, bytes);
    row.append(link);
    return row;
  }

  function draw() {
    const focused = document.activeElement && list.contains(document.activeElement) ? document.activeElement.id : '';
    const from = Math.max(0, Math.floor(rows.scrollTop / ROW) - 10);
    const to = Math.min(shown.length, from + Math.ceil(rows.clientHeight / ROW) + 20);
    const made = [];
    for (let place = from; place < to; ++place) made.push(rowFor(place));
    list.style.height = shown.length * ROW + 'px';
    list.replaceChildren(...made);
    if (focused) {
      const again = document.getElementById(focused);
      if (again) again.focus({ preventScroll: true }); else rows.focus({ preventScroll: true });
    }
  }

  function light(number) {
    for (const element of lit) element.classList.remove('on');
    const [, , , first, last] = partsOf(number);
    const walker = document.createTreeWalker(main, NodeFilter.SHOW_ELEMENT, {
      acceptNode: node => node.nodeName === 'SPAN' ? NodeFilter.FILTER_ACCEPT : NodeFilter.FILTER_SKIP
    });
    lit = [];
    walker.currentNode = document.getElementById('s' + number);
    let node = walker.currentNode;
    for (let count = Math.min(last - first, MOST_LIT); node && count >= 0; --count, node = walker.nextNode()) {
      node.classList.add('on');
      lit.push(node);
    }
  }

  // Shows slice `number` on both sides and puts the focus on its entry ('e') or its place in the source ('s').
  function visit(number, side) {
    if (!slices[number]) return;
    current = number;
    light(number);
    const place = placeOf(number);
    const top = place * ROW;
    if (top < rows.scrollTop || top + 2 * ROW > rows.scrollTop + rows.clientHeight) {
      rows.scrollTop = top - rows.clientHeight / 2;
    }
    draw();
    const target = document.getElementById('s' + number);
    target.scrollIntoView({ block: 'center' });
    target.tabIndex = -1;
    const entry = document.getElementById('e' + number);
    show(side === 'e' && entry ? 'list' : 'source');
    (side === 'e' && entry ? entry : target).focus({ preventScroll: true });
  }

  function numberOf(element) {
    const found = /^[es](\d+)$/.exec(element && element.id || '');
    return found ? Number(found[1]) : current;
  }

  function follow() {
    const place = /^#([es])(\d+)$/.exec(location.hash);
    if (place) visit(Number(place[2]), place[1]);
  }

  // Goes there at once: the event that a changed address brings comes late, and takes the focus from what was begun since.
  function go(number, side) {
    history.pushState(null, '', '#' + side + number);
    visit(number, side);
  }

  function step(by) {
    const from = numberOf(document.activeElement);
    const place = placeOf(from);
    const next = by < 0 ? place - 1 : shown[place] === from ? place + 1 : place;
    if (next < 0 || next >= shown.length) return;
    const side = nav.contains(document.activeElement) ? 'e' : 's';
    history.replaceState(null, '', '#' + side + shown[next]);
    visit(shown[next], side);
  }

  function sift() {
    const wanted = search.value.toLowerCase();
    shown = [];
    for (let number = 0; number < slices.length; ++number) {
      const slice = slices[number];
      if (off.has(slice[0])) continue;
      if (wanted === '' || slice.split('\t', 6)[5].toLowerCase().includes(wanted)) shown.push(number);
    }
    status.textContent = shown.length === 0 && wanted !== '' ? 'No slice has “' + search.value + '”'
      : shown.length === 0 ? 'No slices' : wanted !== '' ? shown.length + ' of ' + slices.length + ' slices' : '';
    rows.scrollTop = 0;
    draw();
    drawMap();
  }

  function drawMap() {
    const height = map.clientHeight;
    if (height === 0 || slices.length === 0) return;
    map.height = height;
    const context = map.getContext('2d');
    const whole = Number(main.querySelector('[data-bytes]').dataset.bytes);
    const style = getComputedStyle(document.documentElement);
    const colours = {};
    for (const box of boxes) colours[box.value] = style.getPropertyValue('--' + box.value);
    let last = '';
    for (const number of shown) {
      const kind = kindOf(number);
      const y = Math.floor(Number(slices[number].split('\t', 2)[1]) / whole * height);
      if (kind + y === last) continue;
      last = kind + y;
      context.fillStyle = colours[kind];
      context.fillRect('tukicm'.includes(kind) ? 1 : 8, y, 6, 1);
    }
  }

  // On phones only one of the three panes is in sight.
  function show(pane) {
    root.dataset.pane = pane;
    for (const tab of document.querySelectorAll('.tabs button')) tab.setAttribute('aria-pressed', tab.value === pane);
  }

  for (const tab of document.querySelectorAll('.tabs button')) {
    tab.addEventListener('click', () => { show(tab.value); draw(); });
  }

  const counts = {};
  for (let number = 0; number < slices.length; ++number) counts[kindOf(number)] = (counts[kindOf(number)] || 0) + 1;
  for (const box of boxes) {
    const count = document.createElement('b');
    count.textContent = counts[box.value] || 0;
    box.parentNode.append(' ', count);
    box.addEventListener('change', () => {
      if (box.checked) off.delete(box.value); else off.add(box.value);
      main.classList.toggle('no-' + box.value, !box.checked);
      sift();
    });
  }

  let waiting = 0;
  search.addEventListener('input', () => {
    clearTimeout(waiting);
    waiting = setTimeout(sift, 120);
  });

  let drawing = false;
  rows.addEventListener('scroll', () => {
    if (drawing) return;
    drawing = true;
    requestAnimationFrame(() => { drawing = false; draw(); });
  });
  addEventListener('resize', () => { draw(); drawMap(); });

  map.addEventListener('click', event => {
    main.scrollTop = event.offsetY / map.clientHeight * main.scrollHeight - main.clientHeight / 2;
  });

  list.addEventListener('click', event => {
    const link = event.target.closest('a');
    if (!link || event.ctrlKey || event.metaKey || event.shiftKey) return;
    event.preventDefault();
    go(numberOf(link), 's');
  });

  main.addEventListener('click', event => {
    const number = event.target.dataset.s || /^s(\d+)$/.exec(event.target.id)?.[1];
    if (number && getSelection().isCollapsed) go(Number(number), 'e');
  });

  document.addEventListener('keydown', event => {
    if (event.ctrlKey || event.metaKey || event.altKey) return;
    if (event.key === 'Escape' && event.target === search) {
      search.value = '';
      sift();
      main.focus();
    } else if (event.target === search) {
      return;
    } else if (event.key === 'j' || event.key === 'k') {
      step(event.key === 'j' ? 1 : -1);
    } else if (event.key === 'Enter' && /^s\d+$/.test(event.target.id)) {
      go(numberOf(event.target), 'e');
    } else if (event.key === '/') {
      event.preventDefault();
      show('list');
      search.focus();
    }
  });

  addEventListener('hashchange', follow);
  show('source');
  sift();
  follow();
})();
