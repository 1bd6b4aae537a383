// The page works without this: links jump between the list and the source. This adds the whole slice lit up,
// the keys, the search and the choice of kinds.
(() => {
  const main = document.querySelector('main');
  const nav = document.querySelector('nav');
  const search = nav.querySelector('input');
  const entries = [...nav.querySelectorAll('li')];
  const pieces = main.querySelectorAll('a, span');
  const off = new Set();
  let current = -1;
  let lit = [];

  function light(number) {
    for (const element of lit) element.classList.remove('on');
    const entry = entries[number].firstChild;
    const [first, last] = entry.dataset.p.split(',').map(Number);
    lit = [entry];
    for (let i = first; i <= last; ++i) lit.push(pieces[i]);
    for (const element of lit) element.classList.add('on');
    current = number;
  }

  // Shows slice `number` on both sides and puts the focus on its entry ('e') or its place in the source ('s').
  function visit(number, side) {
    if (!entries[number]) return;
    light(number);
    const entry = document.getElementById('e' + number);
    const place = document.getElementById('s' + number);
    entry.scrollIntoView({ block: side === 'e' ? 'center' : 'nearest' });
    place.scrollIntoView({ block: 'center' });
    (side === 'e' ? entry : place).focus({ preventScroll: true });
  }

  function follow() {
    const place = /^#([es])(\d+)$/.exec(location.hash);
    if (place) visit(Number(place[2]), place[1]);
  }

  function step(by) {
    let next = current + by;
    while (entries[next] && entries[next].hidden) next += by;
    if (!entries[next]) return;
    const side = nav.contains(document.activeElement) ? 'e' : 's';
    history.replaceState(null, '', '#' + side + next);
    visit(next, side);
  }

  function sift() {
    const wanted = search.value.toLowerCase();
    for (const entry of entries) {
      entry.hidden = off.has(entry.className) || (wanted !== '' && !entry.textContent.toLowerCase().includes(wanted));
    }
  }

  for (const box of document.querySelectorAll('header input')) {
    const count = entries.filter(entry => entry.className === box.value).length;
    box.parentNode.insertAdjacentHTML('beforeend', '<b>' + count + '</b>');
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

  main.addEventListener('click', event => {
    const number = event.target.dataset.s;
    if (number && getSelection().isCollapsed) location.hash = 'e' + number;
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
    } else if (event.key === '/') {
      event.preventDefault();
      search.focus();
    }
  });

  addEventListener('hashchange', follow);
  follow();
})();
